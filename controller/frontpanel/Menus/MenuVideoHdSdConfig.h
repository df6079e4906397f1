// "4x3 Output Aspect Ratio" / "16x9 Output Aspect Ratio" of one output path: whether the
// picture is converted to the output's aspect ratio, and how.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuVideoHdSdConfig : public CConfigTableScreen {
public:
    CMenuVideoHdSdConfig(int path, bool hd, bool twoPaths);
};
