// "ASI Input Configuration": reception and null-packet stripping of the ASI input.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAsiInputSettings : public CConfigTableScreen {
public:
    CMenuAsiInputSettings();
};
