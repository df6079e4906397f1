// "Input Settings": the inputs menu, with an entry per fitted receiver card and the manual
// switch-over between the primary and the backup input.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuInput : public CConfigTableScreen {
public:
    explicit CMenuInput(const Capabilities_t& caps);
};
