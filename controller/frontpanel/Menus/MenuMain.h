// "Main Menu": the top-level sections, each opening its screen by name. Sections whose
// hardware the unit lacks are not offered (their screens are never built).
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuMain : public CConfigTableScreen {
public:
    explicit CMenuMain(const Capabilities_t& caps);
};
