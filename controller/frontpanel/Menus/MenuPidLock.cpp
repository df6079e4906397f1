#include "Menus/MenuPidLock.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(bool backup, const Capabilities_t& caps)
{
    const std::string service = backup ? ".2" : ".1";
    const std::string first = service + ".1";
    const std::string each = service + ".";
    std::vector<CRow> lines = {
        Pid("PCR PID: ", "pidlockPcrPid", first.c_str()),
        Pid("Video PID: ", "pidlockVideoPid", first.c_str()),
        List("Video Type: ", "pidlockVideoType", first.c_str(), {"Auto", "MPEG-2", "H.264"}),
        Record("audiopidlockPid", each.c_str()),
        Pid("Audio # PID: ", "audiopidlockPid", kEach),
        List("Audio # Type: ", "audiopidlockType", kEach,
             {"Auto", "MPEG", "Dolby Digital", "LPCM", "Dolby E", "Dolby Digital+", "AAC-LOAS", "AAC-ADTS"}),
        EndRecord(),
    };
    if (caps.scte35Service) {
        lines.push_back(Record("scte35pidlockPid", each.c_str()));
        lines.push_back(Pid("SCTE35 # PID: ", "scte35pidlockPid", kEach));
        lines.push_back(EndRecord());
    }
    return lines;
}

}  // namespace

CMenuPidLock::CMenuPidLock(bool backup, const Capabilities_t& caps)
    : CConfigTableScreen(backup ? "Backup PID Select" : "Primary PID Select", kServiceSelectSettings,
                         Lines(backup, caps), "Menu Style Long List")
{
}
