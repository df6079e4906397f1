// "8VSB/QAM n Status": the terrestrial and cable receiver's lock, signal and FEC errors.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuVsbStatus : public CStatusTableScreen {
public:
    // input: the receiver's input instance (".6.1").
    CMenuVsbStatus(int card, const std::string& input);
};
