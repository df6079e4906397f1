// "Listening Services" status: each network service's state, port and protocol.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuListeningServicesStatus : public CStatusTableScreen {
public:
    CMenuListeningServicesStatus();
};
