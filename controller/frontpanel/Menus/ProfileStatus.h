// "Profile Status": the profile applied last, updated from the controller's events.
#pragma once

#include "ScreenManager/TableScreen.h"

class CProfileStatus : public CStatusTableScreen {
public:
    CProfileStatus();
};
