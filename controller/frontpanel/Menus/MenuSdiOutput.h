// "Pri. SDI Output" / "Sec. SDI Output": the SD-SDI and HD-SDI pages of one video path and
// the audio embedded in its SDI signal. The HD page only where an HD output is fitted.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuSdiOutput : public CConfigTableScreen {
public:
    // path: 1 primary, 2 secondary.
    CMenuSdiOutput(int path, const Capabilities_t& caps);
};
