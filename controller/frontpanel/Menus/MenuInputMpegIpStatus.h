// "MPEG/IP n-s Input Status": what one stream of an MPEG/IP card receives, with its packet
// and FEC counters.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuInputMpegIpStatus : public CStatusTableScreen {
public:
    // input: the stream's input instance (".4.2").
    CMenuInputMpegIpStatus(int card, int stream, const std::string& input);
};
