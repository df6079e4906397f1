#include "Menus/MenuScte35Status.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    // PID 0: no SCTE-35 PID in that place.
    Text("PID #: ", "selectedscte35Pid", kEach, "%04X").HiddenWhen("selectedscte35Pid", kEach, {"0"}),
    Text("Section Presence: ", "scte35srvSectionPresence", ".1.1").Missing("Not Present"),
};

}  // namespace

CMenuScte35Status::CMenuScte35Status() : CStatusTableScreen("SCTE35", kDecoding, kLines) {}
