// "SCTE35": the SCTE-35 PIDs of the selected service and whether splice sections arrive.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuScte35Status : public CStatusTableScreen {
public:
    CMenuScte35Status();
};
