#include "Menus/MenuListeningServicesStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::string Object(const std::string& service, const char* what)
{
    return "listeningsvc" + service + what;
}

CRow State(const char* label, const std::string& service)
{
    return Text(label, Object(service, "State").c_str(), ".0");
}

// The row under a service's state: " Port: 80 Protocol:TCP".
CRow PortAndProtocol(const std::string& service)
{
    CRow row = Show(" Port: ", ".0", {}, [service](const CRowValues& v) {
        return v(Object(service, "Port")) + " Protocol:" + v(Object(service, "Protocol"));
    });
    row.computeReads = {Object(service, "Port"), Object(service, "Protocol")};
    return row;
}

std::vector<CRow> Lines()
{
    return {
        State("Web Client:", "Web"), PortAndProtocol("Web"),
        State("SSH:", "Ssh"),        PortAndProtocol("Ssh"),
        State("SNMP: ", "Snmp"),     PortAndProtocol("Snmp"),
        State("ICMP: ", "Icmp"),     PortAndProtocol("Icmp"),
        Target("Enter To Configure", kListeningServicesSettings),
    };
}

}  // namespace

CMenuListeningServicesStatus::CMenuListeningServicesStatus()
    : CStatusTableScreen(kListeningServices, kAdmin, Lines())
{
}
