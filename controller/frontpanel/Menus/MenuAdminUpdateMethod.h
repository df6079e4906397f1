// "Update Method": how the unit's clock is kept: from a time server (and which) or by hand.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAdminUpdateMethod : public CConfigTableScreen {
public:
    CMenuAdminUpdateMethod();
};
