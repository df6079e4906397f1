// "DVB-S2 n Select Port": which of the satellite card's RF ports the receiver uses.
#pragma once

#include <string>

#include "Menus/MenuInputPortSelect.h"

class CMenuInputDvbS2SelectPort : public CMenuInputPortSelect {
public:
    // slot: the card's slot (".2").
    CMenuInputDvbS2SelectPort(int card, const std::string& slot);
};
