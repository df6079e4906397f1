// "Options": every fitted board with its model name and location, and the way to one
// board's details. A unit that reports no board shows "No Hardware Detected".
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuHardwareSelect : public CStatusTableScreen {
public:
    CMenuHardwareSelect();
};
