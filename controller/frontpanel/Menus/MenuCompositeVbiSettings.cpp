#include "Menus/MenuCompositeVbiSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    OnOff("Teletext: ", "compositeTeletext", kCard),
    OnOff("WSS: ", "compositeWssState", kCard),
    OnOff("VPS: ", "compositeVpsState", kCard),
    OnOff("AMOL: ", "compositeAmol", kCard),
    OnOff("TVG2X: ", "compositeTvg2x", kCard),
    OnOff("VITC: ", "compositeVitc", kCard),
    OnOff("L21 Captions: ", "compositeLine21Cc", kCard),
};

}  // namespace

CMenuCompositeVbiSettings::CMenuCompositeVbiSettings(int path)
    : CConfigTableScreen(OutputsPath(path) + " Composite VBI", OutputsComposite(path), kLines)
{
    Table().SetCard(".1." + std::to_string(path));
}
