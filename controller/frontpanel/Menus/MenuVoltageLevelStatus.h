// "Voltage Levels Status" (reached as "Voltage Levels" from the admin menu): the unit's
// supply voltages as the controller reports them.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuVoltageLevelStatus : public CStatusTableScreen {
public:
    CMenuVoltageLevelStatus();
};
