// "Video Status": the decoded video of the selected service (type, PID, size, rate,
// profile and level, chroma, bit rate), the AFD code put out, and the audio PIDs of the
// service.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuHdSdVideoStatus : public CStatusTableScreen {
public:
    CMenuHdSdVideoStatus();
};
