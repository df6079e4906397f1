#include "Menus/MenuScte35GeneralConfig.h"

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

const CRow kLines[] = {
    Number("Heartbeat Timeout: ", "scte35srvHeartbeatTimeout", ".1.1", 2, 0, 0, 60).Unit(" min"),
};

}  // namespace

CMenuScte35GeneralConfig::CMenuScte35GeneralConfig() : CConfigTableScreen(kScte35GeneralConfig, kScte35Config, kLines)
{
}
