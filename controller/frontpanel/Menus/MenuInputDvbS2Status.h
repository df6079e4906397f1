// "DVB-S2 n Status": the satellite receiver's lock and signal.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuInputDvbS2Status : public CStatusTableScreen {
public:
    // slot: the card's slot (".2").
    CMenuInputDvbS2Status(int card, const std::string& slot);
};
