// "ASI Input Status": the ASI input's bit rate and transport-stream sync.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAsiInput : public CStatusTableScreen {
public:
    CMenuAsiInput();
};
