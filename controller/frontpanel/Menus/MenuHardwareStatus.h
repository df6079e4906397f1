// "Board Info": the details of the board fitted at one location ("Top Slot"), read from
// the unit's hardware table by that location.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuHardwareStatus : public CStatusTableScreen {
public:
    explicit CMenuHardwareStatus(const std::string& location);
};
