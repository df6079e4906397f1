// "Processing": what the decoder does to the video and audio it puts out; one video entry
// per output path where a second path is fitted, and entries only for the hardware the
// unit has.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuProcessing : public CConfigTableScreen {
public:
    explicit CMenuProcessing(const Capabilities_t& caps);
};
