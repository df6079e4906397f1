// "Video Configuration" of one output path (instance ".1.1" primary, ".1.2" secondary):
// the output format, automatic or one of the unit's formats (on the second path only those
// it can put out), the raster shown without video, and the aspect-ratio and overlay pages.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuHdSdVideoSettings : public CConfigTableScreen {
public:
    CMenuHdSdVideoSettings(int path, bool twoPaths);
};
