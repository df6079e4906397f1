// "Unit Network": the unit's own network settings as they are in force.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuUnitNetworkStatus : public CStatusTableScreen {
public:
    CMenuUnitNetworkStatus();
};
