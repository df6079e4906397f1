// "General Configuration" of SCTE-35 handling: how long without a heartbeat before the
// splice service counts as lost.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuScte35GeneralConfig : public CConfigTableScreen {
public:
    CMenuScte35GeneralConfig();
};
