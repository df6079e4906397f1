#include "Menus/MenuT2MiStatus.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    Text("Pid Presence: ", "t2miInputPidPresence", ".1.1").Missing("Not Present"),
    Text("Stream Generation: ", "t2miStreamGeneration", ".1.1").Missing("Unknown"),
    Text("Processing Status: ", "t2miProcessingStatus", ".1.1"),
    Text("Output PID: ", "t2miOutputPid", ".1.1"),
    Text("Bitrate: ", "t2miOutputBitrate", ".1.1", "%.3f").Scale(1e-6).Unit(" Mbps"),
    Text("PLP Count: ", "t2miPlpCount", ".1.1"),
    Text("Bandwidth: ", "t2miBandwidth", ".1.1"),
    Target("Enter To Configure", ScreenName::kT2MiConfig),
};

}  // namespace

CMenuT2MiStatus::CMenuT2MiStatus() : CStatusTableScreen(ScreenName::kT2MiStatus, ScreenName::kMainMenu, kLines) {}
