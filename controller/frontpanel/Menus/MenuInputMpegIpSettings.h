// "MPEG/IP n-s Input Config": how one stream of an MPEG/IP card is received.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuInputMpegIpSettings : public CConfigTableScreen {
public:
    // input: the stream's input instance (".4.2").
    CMenuInputMpegIpSettings(int card, int stream, const std::string& input);
};
