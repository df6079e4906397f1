// "Audio Processing": one entry per decoded audio service, each opening that service's
// processing page.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuProcessingAudio : public CConfigTableScreen {
public:
    explicit CMenuProcessingAudio(int audioServices);
};
