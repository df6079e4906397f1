// "Configure Date/Time": how the clock is set (by hand or from a time server), the server,
// and, when set by hand, the date and the time, each written into the unit's clock text.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAdminConfigDateTime : public CConfigTableScreen {
public:
    CMenuAdminConfigDateTime();
};
