#include "Menus/MenuBissSelectedServicesStatus.h"

#include "Menus/MenuBissSettings.h"
#include "Menus/MenuConditionalAccess.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    Heading("General:"),
    Show("Op Mode: ", ".1.1", {"bissinterfaceMode", "bissserviceAlias.%"}, BissModeText),
    Show("Key: ", ".1.1", {"bissinterfaceSelectedKey", "bissserviceAlias.%"},
         [](const CRowValues& v) {
             const std::string key = v("bissinterfaceSelectedKey");
             const std::string alias = v("bissserviceAlias", ".1." + key);
             return alias.empty() ? key : alias;
         }),
    Heading("Selected Services:"),
    Record("bissselectedserviceRowStatus", ".1.").Empty("<<No Selected Services>>"),
    Show("", kEach, {"bissselectedserviceService", "siserviceName.%", "siserviceRowStatus.%"},
         [](const CRowValues& v) { return CaText::Service(v.All(), v("bissselectedserviceService")); }),
    EndRecord(),
};

}  // namespace

CMenuBissSelectedServicesStatus::CMenuBissSelectedServicesStatus()
    // The full name is wider than the title row leaves room for.
    : CStatusTableScreen("BISS Selected Srv Status", kConditionalAccess, kLines)
{
}
