// "T2-MI Status": what the T2-MI extraction finds and delivers.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuT2MiStatus : public CStatusTableScreen {
public:
    CMenuT2MiStatus();
};
