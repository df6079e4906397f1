// "BISS Selected Services Status": the operation mode, the key in use and the services
// selected for descrambling ("<<No Selected Services>>" when there are none).
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuBissSelectedServicesStatus : public CStatusTableScreen {
public:
    CMenuBissSelectedServicesStatus();
};
