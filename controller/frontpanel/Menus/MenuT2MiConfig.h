// "T2-MI Configuration": extraction of a stream carried in T2-MI packets.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuT2MiConfig : public CConfigTableScreen {
public:
    CMenuT2MiConfig();
};
