#include "Menus/MenuSdVbiSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    OnOff("L21 Captions: ", "sdsdiLine21Cc", kCard),
    OnOff("Teletext: ", "sdsdiTtxState", kCard),
    OnOff("WSS: ", "sdsdiWssState", kCard),
    OnOff("VPS: ", "sdsdiVpsState", kCard),
    OnOff("AMOL: ", "sdsdiAmolState", kCard),
    OnOff("TVG2X: ", "sdsdiTvg2xState", kCard),
    OnOff("VITC: ", "sdsdiVitcState", kCard),
};

}  // namespace

CMenuSdVbiSettings::CMenuSdVbiSettings(int path)
    : CConfigTableScreen(OutputsPath(path) + " SD-SDI VBI Data", OutputsSdSdi(path), kLines)
{
    Table().SetCard(".1." + std::to_string(path));
}
