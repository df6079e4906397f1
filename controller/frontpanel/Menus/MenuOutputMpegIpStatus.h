// "MPEG/IP n Output Status": the transmitted stream's settings as in force, and whether the
// unicast receiver answered and under which MAC address.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuOutputMpegIpStatus : public CStatusTableScreen {
public:
    // card: numbered from 1; stream: the stream's instance (".4.1"); fec: the card has FEC.
    CMenuOutputMpegIpStatus(int card, const std::string& stream, bool fec);
};
