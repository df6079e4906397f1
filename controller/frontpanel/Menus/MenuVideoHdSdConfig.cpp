#include "Menus/MenuVideoHdSdConfig.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

std::vector<CRow> Lines(int path, bool hd)
{
    const std::string instance = ".1." + std::to_string(path);
    return {
        OnOff("Auto Conversion: ", hd ? "hdaspectratioAutoConversion" : "sdaspectratioAutoConversion",
              instance.c_str()),
        List("Format Mode: ", hd ? "hdaspectratioDisplayMode" : "sdaspectratioDisplayMode", instance.c_str(),
             {"Center-Cut", "Pillarbox", "Anamorphic", "Letterbox", "Disabled"}),
    };
}

std::string Title(int path, bool hd, bool twoPaths)
{
    // The panel's title row holds 24 characters: with a path named, "Output" makes way.
    if (!twoPaths)
        return hd ? DecodingAspect16x9(path) : DecodingAspect4x3(path);
    return std::string(path == 1 ? "Pri. " : "Sec. ") + (hd ? "16x9 Aspect Ratio" : "4x3 Aspect Ratio");
}

}  // namespace

CMenuVideoHdSdConfig::CMenuVideoHdSdConfig(int path, bool hd, bool twoPaths)
    : CConfigTableScreen(Title(path, hd, twoPaths), DecodingVideoSettings(path), Lines(path, hd),
                         "Menu Style Long List")
{
}
