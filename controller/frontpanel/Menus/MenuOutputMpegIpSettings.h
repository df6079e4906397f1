// "MPEG/IP n Output Cfg": the transmitted stream's source, destination, packing, DiffServ
// class and (on cards with it) its FEC matrix.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuOutputMpegIpSettings : public CConfigTableScreen {
public:
    // card: numbered from 1; stream: the stream's instance (".4.1"); fec: the card has FEC.
    CMenuOutputMpegIpSettings(int card, const std::string& stream, bool fec);
};
