// "DVB-S2 n Input Config": the satellite receiver's tuning. Tuning is kept per RF port; the
// page shows the settings of the port in use and follows a change of port.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

// RF ports of a satellite receiver card.
constexpr int kDvbS2RfPorts = 4;

// "LO Offset Mode: " on `object`: the usual LNB local oscillators, or "User" for any other
// offset, typed on the "LO Offset: " row.
CRow LoOffsetMode(const char* object, const char* instance);

class CMenuInputDvbS2Settings : public CConfigTableScreen {
public:
    // slot: the card's slot (".2").
    CMenuInputDvbS2Settings(int card, const std::string& slot);
};
