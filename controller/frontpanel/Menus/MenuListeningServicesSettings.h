// "Listening Services": which network services the unit offers.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuListeningServicesSettings : public CConfigTableScreen {
public:
    CMenuListeningServicesSettings();
};
