// "8VSB/QAM n": the terrestrial and cable receiver's modulation, channel and alarm
// thresholds, with its FEC error counters.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

// Counters wider than the row leave room for: eight digits pass.
constexpr const char* kVsbCounterClip = ">99999999";

class CMenuVsbConfig : public CConfigTableScreen {
public:
    // input: the receiver's input instance (".6.1").
    CMenuVsbConfig(int card, const std::string& input);
};
