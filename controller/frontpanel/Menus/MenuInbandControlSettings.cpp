#include "Menus/MenuInbandControlSettings.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    List("State: ", "inbandcontrolState", ".0", {"Enable", "Disable"}),
    Number("Group: ", "inbandcontrolGroup", ".0", 3, 0, 0, 255),
    Number("PID: ", "inbandcontrolPid", ".0", 4, 0, 0, 8191),
};

}  // namespace

CMenuInbandControlSettings::CMenuInbandControlSettings()
    : CConfigTableScreen(ScreenName::kConfigureInband, ScreenName::kInbandControl, kLines)
{
}
