// "Configure MPEG/IP Card n": the settings of one MPEG/IP card as a whole.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuAdminConfigureMpegIp : public CConfigTableScreen {
public:
    // number: the card's number on the panel (1, 2); slot: its instance (".4").
    CMenuAdminConfigureMpegIp(int number, const std::string& slot);
};
