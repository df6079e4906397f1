// "BISS Add Services": the services descrambled with the selected key; each one can be
// removed, and "Add Service: " adds one of the services received in the stream.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuBissAddServices : public CConfigTableScreen {
public:
    CMenuBissAddServices();
};
