// "Genlock Configuration": the output timing against the reference, in lines, pixels and
// subcarrier phase; the HD offsets only where the unit has an HD output.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuGenlockSettings : public CConfigTableScreen {
public:
    explicit CMenuGenlockSettings(const Capabilities_t& caps);
};
