#include "Menus/MenuHdSdVideoSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(int path)
{
    const std::string instance = ".1." + std::to_string(path);
    const char* at = instance.c_str();
    CRow format = List("Format: ", "videooutputManualFormat", at, {})
                      .From("formatLabel", "formatId")
                      .ShownWhen("videooutputFormatMode", at, {"Manual"});
    if (path == 2)
        format.FromWhere("formatSecondVidOutputAvail", "true");
    std::vector<CRow> lines = {
        List("Format Mode: ", "videooutputFormatMode", at, {"Auto", "Manual"}),
        format,
        List("Raster Mode: ", "videooutputRasterMode", at, {"Solid Color", "Last Frame"}),
        List("Raster: ", "videooutputRasterColor", at,
             {"Black", "White", "Yellow", "Cyan", "Magenta", "Blue", "Green", "Gray"})
            .ShownWhen("videooutputRasterMode", at, {"Solid Color"}),
        Target("SD Aspect Ratio", DecodingAspect4x3(path).c_str()),
        Target("HD Aspect Ratio", DecodingAspect16x9(path).c_str()),
    };
    if (path == 1)  // the overlay is put on the primary output only
        lines.push_back(Target("Overlay", kOverlaySettings));
    return lines;
}

std::string Title(int path, bool twoPaths)
{
    const std::string title = "Video Configuration";
    return twoPaths ? (path == 1 ? "Pri. " : "Sec. ") + title : title;
}

}  // namespace

CMenuHdSdVideoSettings::CMenuHdSdVideoSettings(int path, bool twoPaths)
    : CConfigTableScreen(Title(path, twoPaths), kProcessing, Lines(path), "Menu Style Long List")
{
}
