// "Service Select Status": the service being decoded, its name as the received service
// information gives it, and the selection mode.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuServiceSelectStatus : public CStatusTableScreen {
public:
    CMenuServiceSelectStatus();
};
