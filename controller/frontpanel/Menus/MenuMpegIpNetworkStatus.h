// "MPEG/IP n Port p Status": link, addresses and traffic of one port of an MPEG/IP card.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuMpegIpNetworkStatus : public CStatusTableScreen {
public:
    // port: the port's instance (".4.1").
    CMenuMpegIpNetworkStatus(const std::string& title, const std::string& port);
};
