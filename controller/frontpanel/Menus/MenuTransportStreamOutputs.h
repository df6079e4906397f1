// "Transport Stream Outputs": the ASI output and one entry per fitted MPEG/IP transmit
// card.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuTransportStreamOutputs : public CConfigTableScreen {
public:
    explicit CMenuTransportStreamOutputs(const Capabilities_t& caps);
};
