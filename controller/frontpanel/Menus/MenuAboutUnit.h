// "About Unit": serial number and software version.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuAboutUnit : public CStatusTableScreen {
public:
    CMenuAboutUnit();
};
