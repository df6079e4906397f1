// "System Time": the unit's date and time as it ticks, who sets it and the time server.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuSystemTime : public CStatusTableScreen {
public:
    CMenuSystemTime();
};
