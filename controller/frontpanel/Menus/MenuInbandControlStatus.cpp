#include "Menus/MenuInbandControlStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// The settings page writes the group at ".0"; the status is read at ".1".
std::string StateText(const CRowValues& v)
{
    std::string group = v("inbandcontrolGroup", ".1");
    if (group.empty() || group == "0")
        group = "None";
    return std::string(v("inbandcontrolState") == "Enable" ? "Enabled" : "Disabled") +
           " PID: " + v("inbandcontrolPid") + " Grp:" + group;
}

std::string UpdateText(const CRowValues& v)
{
    const std::string state = v("inbandupdateState");
    if (state == "Collecting")
        return "Collecting (" + v("inbandupdateProgress") + ")";
    return state;
}

const CRow kLines[] = {
    Show("", ".0", {"inbandcontrolState", "inbandcontrolPid", "inbandcontrolGroup.1"}, StateText),
    Text("Device ID: ", "inbandcontrolDeviceId", ".0"),
    Show("Update: ", ".0", {"inbandupdateState", "inbandupdateProgress"}, UpdateText),
    Target("Enter To Configure", kConfigureInband),
};

}  // namespace

CMenuInbandControlStatus::CMenuInbandControlStatus() : CStatusTableScreen(kInbandControl, kAdmin, kLines) {}
