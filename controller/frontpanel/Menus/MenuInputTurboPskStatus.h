// "Turbo PSK n Status": the Turbo PSK receiver's lock and signal.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuInputTurboPskStatus : public CStatusTableScreen {
public:
    // input: the receiver's input instance (".8.1").
    CMenuInputTurboPskStatus(int card, const std::string& input);
};
