// "SCTE35 Configuration": the SCTE-35 handling pages the unit has (ESAM, general, cue
// relays).
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuScte35Config : public CConfigTableScreen {
public:
    explicit CMenuScte35Config(const Capabilities_t& caps);
};
