// "DVB-CI(Top)" / "DVB-CI(Btm)": a CAM slot's state and descrambling mode, and the
// configuration of what it descrambles: the PIDs in "Use Selected PIDs", the services in
// "Use Selected Services".
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuDvbCiSettings : public CConfigTableScreen {
public:
    // `slot`: 0 top, 1 bottom; `instance`: the slot as the unit reports it (".1").
    CMenuDvbCiSettings(int slot, const std::string& instance);
};
