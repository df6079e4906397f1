// "SD-SDI VBI Data" of one video path: which data the SD-SDI output carries in its
// vertical blanking.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuSdVbiSettings : public CConfigTableScreen {
public:
    // path: 1 primary, 2 secondary.
    explicit CMenuSdVbiSettings(int path);
};
