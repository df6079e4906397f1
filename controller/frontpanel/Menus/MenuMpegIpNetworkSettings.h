// "MPEG/IP n Port p": the network settings of one port of an MPEG/IP card.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuMpegIpNetworkSettings : public CConfigTableScreen {
public:
    // port: the port's instance (".4.1").
    CMenuMpegIpNetworkSettings(const std::string& title, const std::string& port);
};
