// "Configure In-Band": control of the unit through its received transport stream.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuInbandControlSettings : public CConfigTableScreen {
public:
    CMenuInbandControlSettings();
};
