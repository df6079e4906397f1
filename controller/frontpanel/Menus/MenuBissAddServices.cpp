#include "Menus/MenuBissAddServices.h"

#include "Menus/MenuConditionalAccess.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char* const kRows = "bissselectedserviceRowStatus";

const CRow kLines[] = {
    Heading("Selected Service:"),
    Record(kRows, ".1."),
    Show("", kEach, {"bissselectedserviceService", "siserviceName.%", "siserviceRowStatus.%"},
         [](const CRowValues& v) { return CaText::Service(v.All(), v("bissselectedserviceService")); }),
    Command(" Remove", kRows, kEach, "6"),
    EndRecord(),
    AddRow("Add Service: ", kRows, "bissselectedserviceService", ".1")
        .Choice("None", "")
        .From("siserviceName", "siserviceNum"),
};

}  // namespace

CMenuBissAddServices::CMenuBissAddServices()
    : CConfigTableScreen("BISS Add Service", kBissConfig, kLines, "Menu Style Long List")
{
}
