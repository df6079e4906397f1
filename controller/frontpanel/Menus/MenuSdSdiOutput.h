// "SD-SDI Output" of one video path: what the output does on video loss, its ANC and VBI
// data.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuSdSdiOutput : public CConfigTableScreen {
public:
    // path: 1 primary, 2 secondary.
    explicit CMenuSdSdiOutput(int path);
};
