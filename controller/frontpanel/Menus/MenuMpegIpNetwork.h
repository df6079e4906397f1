// "MPEG/IP Networking": per fitted MPEG/IP card, the settings and status of its two
// ports and the card's own settings.
#pragma once

#include <string>
#include <vector>

#include "ScreenManager/TableScreen.h"

class CMenuMpegIpNetwork : public CConfigTableScreen {
public:
    // cards: the cards' slots (".4", ".5"), numbered 1, 2, ... in this order.
    explicit CMenuMpegIpNetwork(const std::vector<std::string>& cards);
};
