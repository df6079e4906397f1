// "Primary Service Select" / "Backup Service Select": the service the decoder locks to,
// chosen by name or by number among the received services; only the row of the chosen mode
// is shown.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuServiceLock : public CConfigTableScreen {
public:
    explicit CMenuServiceLock(bool backup);
};
