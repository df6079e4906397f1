// "Relay Configuration": one entry per cue trigger, each opening its relay settings.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuTrigger : public CConfigTableScreen {
public:
    explicit CMenuTrigger(int triggers);
};
