// "DVB-CI(Btm) Config Srvs" for a module that descrambles one service: the selected service
// with "Remove" (written at once), and with none "Select Service: " picks one among the
// services received (written at once). A selected service that left the stream is shown
// " (Not Present)".
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuDvbCiConfigServicesSingleSrv : public CConfigTableScreen {
public:
    CMenuDvbCiConfigServicesSingleSrv(int slot, const std::string& instance);
};
