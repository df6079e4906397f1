// "Ancillary Status": which ancillary data the decoded video carries; a long list scrolled
// with UP and DOWN.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAncStatus : public CStatusTableScreen {
public:
    CMenuAncStatus();
};
