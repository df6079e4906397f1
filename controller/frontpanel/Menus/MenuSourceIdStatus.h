// "Source ID": the source identification in force, and the page that sets how it is found.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuSourceIdStatus : public CConfigTableScreen {
public:
    CMenuSourceIdStatus();
};
