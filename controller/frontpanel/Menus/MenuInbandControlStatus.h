// "In-Band Control": whether the unit is controlled through its received stream, on which
// PID and group, its device id, and the progress of an update received that way.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuInbandControlStatus : public CStatusTableScreen {
public:
    CMenuInbandControlStatus();
};
