// "Turbo PSK n": the Turbo PSK receiver's mode, modulation and tuning.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuInputTurboPskConfig : public CConfigTableScreen {
public:
    // input: the receiver's input instance (".8.1").
    CMenuInputTurboPskConfig(int card, const std::string& input);
};
