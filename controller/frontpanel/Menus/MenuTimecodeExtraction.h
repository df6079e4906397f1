// "Timecode Configuration": where the decoder takes the time code from.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuTimecodeExtraction : public CConfigTableScreen {
public:
    CMenuTimecodeExtraction();
};
