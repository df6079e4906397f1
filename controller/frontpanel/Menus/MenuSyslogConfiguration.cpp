#include "Menus/MenuSyslogConfiguration.h"

#include "ScreenManager/ScreenNames.h"

namespace {

// Receivers are rows of a table indexed by address type 1 (IPv4), length 4, the address.
const CRow kLines[] = {
    OnOff("State: ", "syslogTransmissionState", ".0"),
    Record("syslogreceiverRowStatus", ".1.4.").Empty("<<No Receivers>>"),
    Text("IP: ", "syslogreceiverIpAddress", kEach),
    Number("Port: ", "syslogreceiverPort", kEach, 5, 0, 1, 65535),
    List("Protocol: ", "syslogreceiverProtocol", kEach, {"UDP", "TCP"}),
    Command("Remove", "syslogreceiverRowStatus", kEach, "6"),
    EndRecord(),
    AddAddress("Add Receiver: ", "syslogreceiverRowStatus", ".1.4"),
};

}  // namespace

CMenuSyslogConfiguration::CMenuSyslogConfiguration()
    : CConfigTableScreen(ScreenName::kSyslogConfiguration, ScreenName::kAdmin, kLines)
{
}
