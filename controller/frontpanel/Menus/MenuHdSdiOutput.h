// "HD-SDI Output" of one video path: what the output does on video loss, and its ANC data.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuHdSdiOutput : public CConfigTableScreen {
public:
    // path: 1 primary, 2 secondary.
    explicit CMenuHdSdiOutput(int path);
};
