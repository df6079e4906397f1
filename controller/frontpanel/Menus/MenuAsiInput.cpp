#include "Menus/MenuAsiInput.h"

#include "ScreenManager/ScreenNames.h"

namespace {

// The ASI input is the main board's, slot 1.
const CRow kLines[] = {
    Text("Bitrate: ", "tsinputsrcTsBitrate", ".1.1", "%.3f").Scale(1e-6).Unit(" Mbps"),
    Text("TS Sync: ", "tsinputsrcTsSync", ".1.1").Missing("Unlocked"),
    Target("Enter To Configure", ScreenName::kAsiInputConfig),
};

}  // namespace

CMenuAsiInput::CMenuAsiInput() : CStatusTableScreen("ASI Input", ScreenName::kInputs, kLines) {}
