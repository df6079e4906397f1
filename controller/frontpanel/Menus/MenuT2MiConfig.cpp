#include "Menus/MenuT2MiConfig.h"

#include "ScreenManager/ScreenNames.h"

namespace {

const CRow kLines[] = {
    OnOff("Processing State: ", "t2miState", ".1.1"),
    Number("Data PID: ", "t2miInputPid", ".1.1", 4, 0, 0.0, 8191.0),
    Number("Receiver Address: ", "t2miReceiverAddress", ".1.1", 3, 0, 0.0, 255.0),
};

}  // namespace

CMenuT2MiConfig::CMenuT2MiConfig() : CConfigTableScreen(ScreenName::kT2MiConfig, ScreenName::kT2MiStatus, kLines) {}
