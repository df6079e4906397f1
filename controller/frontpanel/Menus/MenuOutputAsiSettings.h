// "ASI Output": whether the main board's ASI output transmits, and which stream it carries.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuOutputAsiSettings : public CConfigTableScreen {
public:
    CMenuOutputAsiSettings();
};

// The stream a transport-stream output carries: one of the controller's output sources,
// chosen by its row number. The longest label is shortened to fit the panel; a number no
// source has shows "Unknown".
CRow OutputSource();
