// "Unit Temperature": one row per temperature sensor of the unit.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuUnitTemperature : public CStatusTableScreen {
public:
    CMenuUnitTemperature();
};
