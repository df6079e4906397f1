// "Decoding": the status of what the decoder receives, and the service selection behind
// "Advanced Settings". Entries for absent hardware are left out.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuDecoding : public CConfigTableScreen {
public:
    explicit CMenuDecoding(const Capabilities_t& caps);
};
