#include "Menus/MenuSdAncSettings.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

// The vertical ancillary space of an SD raster.
CRow LineOf(const char* object, const char* state)
{
    return Number("Line Number: ", object, kCard, 2, 0, 9, 22).ShownWhen(state, kCard, {"Enabled"});
}

// The two SMPTE 2031 names leave no room for a value: they head their own rows.
const CRow kLines[] = {
    OnOff("EIA 708-B: ", "sdsdiCcCea708State", kCard),
    LineOf("sdsdiCcCea708Line", "sdsdiCcCea708State"),
    OnOff("RDD11: ", "sdsdiRdd11State", kCard),
    Heading("TTX/VPS/WSS SMPTE2031"),
    OnOff("State: ", "sdsdiEn301775State", kCard),
    LineOf("sdsdiEn301775Line", "sdsdiEn301775State"),
    Heading("AMOL/TVG2X/VITC SMPTE2031"),
    OnOff("State: ", "sdsdiScte127State", kCard),
    LineOf("sdsdiScte127Line", "sdsdiScte127State"),
    OnOff("AFD: ", "sdsdiAfdState", kCard),
    LineOf("sdsdiAfdLine", "sdsdiAfdState"),
    OnOff("ATC: ", "sdsdiAtcState", kCard),
    LineOf("sdsdiAtcLine", "sdsdiAtcState"),
    OnOff("SMPTE2038: ", "sdsdiSmpte2038State", kCard),
    OnOff("VII: ", "sdsdiViiState", kCard),
    LineOf("sdsdiViiLine", "sdsdiViiState"),
    OnOff("Source ID: ", "sdsdiSourceIdState", kCard),
    LineOf("sdsdiSourceIdLine", "sdsdiSourceIdState"),
    OnOff("SCTE104: ", "sdsdiscte104State", kCard),
    LineOf("sdsdiscte104Line", "sdsdiscte104State"),
};

}  // namespace

CMenuSdAncSettings::CMenuSdAncSettings(int path)
    : CConfigTableScreen(OutputsPath(path) + " SD-SDI ANC Data", OutputsSdSdi(path), kLines)
{
    Table().SetCard(".1." + std::to_string(path));
}
