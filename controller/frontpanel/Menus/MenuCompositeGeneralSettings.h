// "Composite General" of one video path: black level, the 525- and 625-line standards and
// what the output does on video loss.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuCompositeGeneralSettings : public CConfigTableScreen {
public:
    // path: 1 primary, 2 secondary.
    explicit CMenuCompositeGeneralSettings(int path);
};
