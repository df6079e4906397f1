#include "Menus/MenuCompositeGeneralSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// The long labels take a row of their own, their choice the next; they come first, since
// the long-list style draws a last row's choice beside its label.
const CRow kLines[] = {
    List("NTSC Pedestal: ", "compositeNtscPedestal", kCard, {"Black at 7.5 IRE", "Black at 0 IRE"}).TwoRows(),
    List("Video Loss Mode: ", "compositeVideoLossMode", kCard, {"Disable Output", "Display Raster"}).TwoRows(),
    List("525: ", "composite525Std", kCard, {"NTSC", "PAL-M"}),
    List("625: ", "composite625Std", kCard, {"PAL-BGID", "PAL-N"}),
};

}  // namespace

CMenuCompositeGeneralSettings::CMenuCompositeGeneralSettings(int path)
    : CConfigTableScreen(OutputsPath(path) + " Composite General", OutputsComposite(path), kLines,
                         "Menu Style Long List")
{
    Table().SetCard(".1." + std::to_string(path));
}
