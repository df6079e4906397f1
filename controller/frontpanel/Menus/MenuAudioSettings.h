// The processing of one decoded audio service (instance ".1.n"): downmix, AC-3 mode and
// dynamic range, the output format, discrete channels, and the audio delay.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAudioSettings : public CConfigTableScreen {
public:
    explicit CMenuAudioSettings(int audio);
};
