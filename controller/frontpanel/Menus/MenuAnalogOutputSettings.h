// "Analog Output n": the decoded audio service an analogue output plays and its level at
// digital full scale.
#pragma once

#include "Qb/Types.h"
#include "ScreenManager/TableScreen.h"

class CMenuAnalogOutputSettings : public CConfigTableScreen {
public:
    // output: from 1; services: the unit's decoded audio services.
    CMenuAnalogOutputSettings(int output, Qb::uint32 services);
};
