// "HD-SDI ANC Data" of one video path: each ancillary data type on or off, and the line it
// is inserted on (offered only while the type is on).
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuHdAncSettings : public CConfigTableScreen {
public:
    // path: 1 primary, 2 secondary.
    explicit CMenuHdAncSettings(int path);
};
