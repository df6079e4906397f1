// "Baseband Outputs": the SDI and composite outputs of each video path and the audio
// outputs. A composite entry is offered only while its path reads a video-loss mode (a
// unit without composite outputs has none).
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuOutput : public CConfigTableScreen {
public:
    explicit CMenuOutput(const Capabilities_t& caps);
};
