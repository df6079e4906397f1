// "Primary Composite" / "Secondary Composite": the composite output of one video path.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuCompositeSetting : public CConfigTableScreen {
public:
    // path: 1 primary, 2 secondary.
    explicit CMenuCompositeSetting(int path);
};
