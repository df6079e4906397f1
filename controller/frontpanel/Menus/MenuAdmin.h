// "Admin": the unit-wide settings and information, the panel lock and the profiles. The
// lock entry is named after the lock mode; "Enable UID: " lights the identification lamp.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuAdmin : public CConfigTableScreen {
public:
    explicit CMenuAdmin(const Capabilities_t& caps);
};
