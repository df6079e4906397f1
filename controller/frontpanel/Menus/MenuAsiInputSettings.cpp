#include "Menus/MenuAsiInputSettings.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    OnOff("Receive: ", "tsinputsrcState", ".1.1"),
    OnOff("Null Strip: ", "asiinNullStrippedState", ".1.1"),
};

}  // namespace

CMenuAsiInputSettings::CMenuAsiInputSettings()
    : CConfigTableScreen(ScreenName::kAsiInputConfig, ScreenName::kAsiInputStatus, kLines)
{
}
