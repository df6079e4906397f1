// "Audio": each audio service of the selected service as the decoder finds it (type, PID,
// bit rate, sampling rate, coding mode, sample size, dialogue normalisation); services
// with no audio are left out.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAudio : public CStatusTableScreen {
public:
    CMenuAudio();
};
