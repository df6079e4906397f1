// "Genlock Status": the reference signal found and whether each output path is locked to
// it.
#pragma once

#include "ScreenManager/Capabilities.h"
#include "ScreenManager/TableScreen.h"

class CMenuGenlockStatus : public CStatusTableScreen {
public:
    explicit CMenuGenlockStatus(const Capabilities_t& caps);
};
