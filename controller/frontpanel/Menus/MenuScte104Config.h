// "SCTE104 Configuration": which operations of an SCTE-104 message are passed on.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuScte104Config : public CConfigTableScreen {
public:
    CMenuScte104Config();
};
