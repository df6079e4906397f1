// "Composite VBI" of one video path: which data the composite output carries in its
// vertical blanking.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuCompositeVbiSettings : public CConfigTableScreen {
public:
    // path: 1 primary, 2 secondary.
    explicit CMenuCompositeVbiSettings(int path);
};
