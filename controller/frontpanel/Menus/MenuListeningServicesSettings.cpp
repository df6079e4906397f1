#include "Menus/MenuListeningServicesSettings.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    OnOff("Web Client Service: ", "listeningsvcWebState", ".0"),
    OnOff("SSH Debug Access: ", "listeningsvcSshState", ".0"),
    OnOff("SNMP: ", "listeningsvcSnmpState", ".0"),
    OnOff("ICMP: ", "listeningsvcIcmpState", ".0"),
};

}  // namespace

CMenuListeningServicesSettings::CMenuListeningServicesSettings()
    : CConfigTableScreen(ScreenName::kListeningServices, ScreenName::kListeningServices, kLines)
{
}
