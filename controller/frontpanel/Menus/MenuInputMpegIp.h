// "MPEG/IP n": the MPEG/IP card's two received streams, each with its settings and status.
#pragma once

#include "ScreenManager/TableScreen.h"

// Streams received by an MPEG/IP card.
constexpr int kMpegIpStreams = 2;

class CMenuInputMpegIp : public CConfigTableScreen {
public:
    explicit CMenuInputMpegIp(int card);
};
