// The relay of one cue trigger (instance "<trigger>.1"): which splice events trigger it
// (all, or those of one event ID or source, in hexadecimal), when, and whether it pulses
// or latches; only the rows of the chosen filter and mode are shown.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuTriggerSetting : public CConfigTableScreen {
public:
    CMenuTriggerSetting(int trigger, const std::string& slot);
};
