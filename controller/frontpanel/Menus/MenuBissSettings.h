// "BISS Config": the descrambling keys, one group of rows per key: its alias, its mode and
// the key words of that mode (Mode 1: the session word; Mode E: the encrypted session word
// and the injected identifier). The rows of the other mode go as soon as the mode changes,
// also while the user is still on the page. Links to the operation mode and the services.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuBissSettings : public CConfigTableScreen {
public:
    CMenuBissSettings();
};

// The shown text of the BISS operation mode: 0 "Disabled", 1 "All PIDs", from 2 on the
// alias of the key in that place (2 is the first key).
std::string BissModeText(const CRowValues& values);
