#include "Menus/MenuDvbCiStatus.h"

#include "Menus/MenuConditionalAccess.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char* const kMode = "camoptMode";

CRow InMode(CRow row, const char* mode)
{
    return row.ShownWhen(kMode, kCard, {mode});
}

// A selected PID takes two rows: its service, then the PID.
std::string SelectedPidService(const CRowValues& v)
{
    const std::string program = v("camselectedpidProgramNumber");
    return program == "65535" ? "No Associated Service:" : "Srv " + program + ":";
}

std::string SelectedPid(const CRowValues& v)
{
    std::string text = "  " + CaText::Pid(v("camselectedpidPid"));
    if (v("camselectedpidPresence") == "Not Present")
        text += " (Not Present)";
    return text;
}

std::vector<CRow> Lines(const std::string& within)
{
    const char* const kDecoded = "Use Decoded PIDs";
    const char* const kPids = "Use Selected PIDs";
    const char* const kServices = "Use Selected Services";
    return {
        Text("Module: ", "camslotCamName", kCard).Missing("No Module"),
        Text("Mode: ", kMode, kCard),
        InMode(Heading("  PID"), kDecoded),
        InMode(Record("camactivepidActivePid", within.c_str()), kDecoded),
        InMode(Show("  ", kEach, {"camactivepidActivePid", "camactivepidActivePidStatus"},
                    [](const CRowValues& v) {
                        std::string text = CaText::Pid(v("camactivepidActivePid"));
                        if (v("camactivepidActivePidStatus") == "Not Descrambling")
                            text += " (Not Dscmblg)";
                        return text;
                    }),
               kDecoded),
        EndRecord(),
        InMode(Record("camselectedpidRowStatus", within.c_str()).Empty("<<No CAM Selected PIDs>>"), kPids),
        InMode(Show("", kEach, {"camselectedpidProgramNumber"}, SelectedPidService), kPids),
        InMode(Show("", kEach, {"camselectedpidPid", "camselectedpidPresence"}, SelectedPid), kPids),
        EndRecord(),
        InMode(Heading("Service"), kServices),
        InMode(Record("camselectedserviceRowStatus", within.c_str()).Empty("<<No CAM Selected Services>>"),
               kServices),
        InMode(Show("", kEach, {"camselectedserviceProgramNumber", "siserviceName.%", "siserviceRowStatus.%"},
                    [](const CRowValues& v) {
                        return CaText::Service(v.All(), v("camselectedserviceProgramNumber"));
                    }),
               kServices),
        EndRecord(),
    };
}

}  // namespace

CMenuDvbCiStatus::CMenuDvbCiStatus(int slot, const std::string& instance)
    : CStatusTableScreen(CaDvbCiStatus(slot), kDvbCi, Lines(instance + "."))
{
    Table().SetCard(instance + ".1");
}
