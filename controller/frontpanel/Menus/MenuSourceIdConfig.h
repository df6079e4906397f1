// "Source ID Config": the source identification is looked up from the stream or set by
// hand; the manual ID is shown only in manual mode.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuSourceIdConfig : public CConfigTableScreen {
public:
    CMenuSourceIdConfig();
};
