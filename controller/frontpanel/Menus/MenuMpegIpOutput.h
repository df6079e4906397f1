// "MPEG/IP n Output": the settings and the status of the stream an MPEG/IP card transmits.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuMpegIpOutput : public CConfigTableScreen {
public:
    // card: numbered from 1 in slot order.
    explicit CMenuMpegIpOutput(int card);
};
