// "Overlay Configuration": captions or DVB subtitles drawn onto the primary output; only
// the rows of the chosen overlay are shown.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuOverlaySettings : public CConfigTableScreen {
public:
    CMenuOverlaySettings();
};
