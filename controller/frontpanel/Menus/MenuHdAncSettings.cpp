#include "Menus/MenuHdAncSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// The vertical ancillary space of an HD raster.
CRow LineOf(const char* object, const char* state)
{
    return Number("Line Number: ", object, kCard, 2, 0, 9, 41).ShownWhen(state, kCard, {"Enabled"});
}

// The two SMPTE 2031 names leave no room for a value: they head their own rows.
const CRow kLines[] = {
    OnOff("CC708: ", "hdsdiCcCea708State", kCard),
    LineOf("hdsdiCcCea708Line", "hdsdiCcCea708State"),
    OnOff("RDD11: ", "hdsdiRdd11State", kCard),
    Heading("TTX/VPS/WSS SMPTE2031"),
    OnOff("State: ", "hdsdiEn301775State", kCard),
    LineOf("hdsdiEn301775Line", "hdsdiEn301775State"),
    Heading("AMOL/TVG2X/VITC SMPTE2031"),
    OnOff("State: ", "hdsdiScte127State", kCard),
    LineOf("hdsdiScte127Line", "hdsdiScte127State"),
    OnOff("AFD: ", "hdsdiAfdState", kCard),
    LineOf("hdsdiAfdLine", "hdsdiAfdState"),
    OnOff("OP47: ", "hdsdiOp47State", kCard),
    LineOf("hdsdiOp47Line", "hdsdiOp47State"),
    OnOff("ATC VANC: ", "hdsdiVancAtcState", kCard),
    LineOf("hdsdiVancAtcLine", "hdsdiVancAtcState"),
    OnOff("ATC HANC: ", "hdsdiHancAtcState", kCard),
    LineOf("hdsdiHancAtcLine", "hdsdiHancAtcState"),
    OnOff("SMPTE2038: ", "hdsdiAncSmpte2038State", kCard),
    OnOff("Source ID: ", "hdsdiSourceIdState", kCard),
    LineOf("hdsdiSourceIdLine", "hdsdiSourceIdState"),
    OnOff("SCTE104: ", "hdsdiscte104State", kCard),
    LineOf("hdsdiscte104Line", "hdsdiscte104State"),
};

}  // namespace

CMenuHdAncSettings::CMenuHdAncSettings(int path)
    : CConfigTableScreen(OutputsPath(path) + " HD-SDI ANC Data", OutputsHdSdi(path), kLines)
{
    Table().SetCard(".1." + std::to_string(path));
}
