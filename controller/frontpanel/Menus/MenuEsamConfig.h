// "ESAM Configuration": the placement opportunity server asked about each splice, and what
// is done when it does not answer.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuEsamConfig : public CConfigTableScreen {
public:
    CMenuEsamConfig();
};
