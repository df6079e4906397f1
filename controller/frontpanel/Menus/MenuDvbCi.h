// "DVB-CI": for each CAM slot the unit has, the module in it and the mode it descrambles
// in, with the slot's settings and status.
#pragma once

#include <string>
#include <vector>

#include "ScreenManager/TableScreen.h"

class CMenuDvbCi : public CConfigTableScreen {
public:
    // `slots`: the CAM slots in the order the unit reports them (".1" top, ".2" bottom).
    explicit CMenuDvbCi(const std::vector<std::string>& slots);
};
