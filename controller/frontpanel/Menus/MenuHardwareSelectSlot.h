// "Select Slot": the slots whose board details can be shown.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuHardwareSelectSlot : public CConfigTableScreen {
public:
    CMenuHardwareSelectSlot();
};
