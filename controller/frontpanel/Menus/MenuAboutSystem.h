// "About System": the unit's identity and its fitted hardware.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAboutSystem : public CConfigTableScreen {
public:
    CMenuAboutSystem();
};
