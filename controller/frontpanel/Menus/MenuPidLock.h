// "Primary PID Select" / "Backup PID Select": the PIDs the decoder uses when it selects by
// PID (primary instances ".1.n", backup ".2.n"), typed in hexadecimal; one pair of rows
// per audio service and one row per SCTE-35 PID.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuPidLock : public CConfigTableScreen {
public:
    CMenuPidLock(bool backup, const Capabilities_t& caps);
};
