#include "Menus/MenuOverlaySettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const char kType[] = "overlayType";
const char kCaptions[] = "Closed Captions";
const char kSubtitles[] = "DVB Subtitles";

const CRow kLines[] = {
    List("Type: ", kType, ".1.1", {"None", kCaptions, kSubtitles}),
    List("Caption: ", "overlayCcType", ".1.1", {"NTSC", "DTVCC"}).ShownWhen(kType, ".1.1", {kCaptions}),
    List("NTSC: ", "overlayNtscCcDataType", ".1.1",
         {"Closed Caption 1", "Closed Caption 2", "Closed Caption 3", "Closed Caption 4"})
        .ShownWhen(kType, ".1.1", {kCaptions})
        .ShownWhen("overlayCcType", ".1.1", {"NTSC"}),
    List("DTVCC: ", "overlayDtvCcDataType", ".1.1",
         {"Service 1", "Service 2", "Service 3", "Service 4", "Service 5", "Service 6"})
        .ShownWhen(kType, ".1.1", {kCaptions})
        .ShownWhen("overlayCcType", ".1.1", {"DTVCC"}),
    List("Lang: ", "overlayDvbSubtitleLanguage", ".1.1", {})
        .From("sidvbsubtitleinfoLang")
        .ShownWhen(kType, ".1.1", {kSubtitles}),
    Pid("Subtitle PID: ", "overlayDvbSubtitlePid", ".1.1").ShownWhen(kType, ".1.1", {kSubtitles}),
    Text("Service: ", "selectedserviceServiceNum", ".1.1"),
};

}  // namespace

CMenuOverlaySettings::CMenuOverlaySettings()
    : CConfigTableScreen("Overlay Configuration", DecodingVideoSettings(1), kLines)
{
}
