// "Analog Audio": one entry per analogue audio output of the unit.
#pragma once

#include "Qb/Types.h"
#include "ScreenManager/TableScreen.h"

class CMenuAnalogAudioOutput : public CConfigTableScreen {
public:
    explicit CMenuAnalogAudioOutput(Qb::uint32 outputs);
};
