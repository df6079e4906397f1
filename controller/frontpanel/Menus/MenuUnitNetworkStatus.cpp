#include "Menus/MenuUnitNetworkStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    Text("Host Name: ", "tcpipHostname", ".0").Missing("(none)"),
    Text("IP Address: ", "tcpipIpAddress", ".0"),
    Text("Subnet Mask: ", "tcpipNetmask", ".0"),
    Text("Gateway: ", "tcpipGateway", ".0").Missing("0.0.0.0"),
    Text("DHCP: ", "tcpipIpMode", ".0"),
    Text("MAC: ", "tcpipMacAddress", ".0"),
    Target("Enter To Configure", kConfigureNetwork),
};

}  // namespace

CMenuUnitNetworkStatus::CMenuUnitNetworkStatus() : CStatusTableScreen("Unit Network", kAdmin, kLines) {}
