// "Input Select Status": the input selection, read-only.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuInputSelectStatus : public CStatusTableScreen {
public:
    CMenuInputSelectStatus();
};
