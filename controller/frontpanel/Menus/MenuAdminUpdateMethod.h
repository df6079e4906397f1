// "Update Method": how the unit's clock is kept, and the ways to set it.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAdminUpdateMethod : public CConfigTableScreen {
public:
    CMenuAdminUpdateMethod();
};
