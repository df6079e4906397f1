// "Input Select Config": the primary and backup inputs and when the unit switches between
// them.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuInputSelect : public CConfigTableScreen {
public:
    CMenuInputSelect();
};
