#include "Menus/MenuHdSdVideoStatus.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::string Size(const CRowValues& v)
{
    const std::string width = v("videoWidth");
    const std::string height = v("videoHeight");
    return width.empty() && height.empty() ? std::string() : width + "x" + height;
}

const CRow kLines[] = {
    Text("Video Type: ", "selectedserviceVideoType", ".1.1"),
    Text("Video PID: ", "selectedserviceVideoPid", ".1.1", "%04X"),
    Show("Size: ", ".1.1", {"videoWidth", "videoHeight"}, Size),
    Text("Scan Type: ", "videoScanType", ".1.1"),
    // A rate the decoder reports that is not one of these is shown as "-- fps".
    List("Frame Rate: ", "videoFrameRate", ".1.1",
         {"23.98 fps", "24 fps", "25 fps", "29.97 fps", "30 fps", "50 fps", "59.94 fps", "60 fps"})
        .Unknown("-- fps")
        .Missing("-- fps"),
    Text("Aspect Ratio: ", "videoAspectRatio", ".1.1"),
    Text("Profile: ", "videoProfile", ".1.1"),
    Text("Level: ", "videoLevel", ".1.1"),
    Text("Chroma: ", "videoChromaFormat", ".1.1"),
    Text("Bit Depth: ", "videoChromaBitDepth", ".1.1"),
    Text("Bitrate: ", "videoAverageBitrate", ".1.1", "%2.1f").Scale(1e-6).Unit(" Mbps"),
    Text("Output AFD Code: ", "videooutputAfdCode", ".1.1"),
    Record("selectedaudioPid"),
    Text("Audio # PID: ", "selectedaudioPid", kEach, "%04X").HiddenWhen("selectedaudioType", kEach, {"None"}),
    Text("Audio # Type: ", "selectedaudioType", kEach).HiddenWhen("selectedaudioType", kEach, {"None"}),
    EndRecord(),
};

}  // namespace

CMenuHdSdVideoStatus::CMenuHdSdVideoStatus()
    : CStatusTableScreen("Video Status", kDecoding, kLines, "Menu Style Long List")
{
}
