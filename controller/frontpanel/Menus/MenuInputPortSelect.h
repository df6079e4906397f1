// A receiver's RF port choice: one row per port, the port in use marked " (Selected)";
// ENTER on a port makes it the one in use.
#pragma once

#include <string>

#include "ScreenManager/TableScreen.h"

class CMenuInputPortSelect : public CConfigTableScreen {
public:
    // activePort: the object holding the port in use (1 to ports) at the instance `card`.
    CMenuInputPortSelect(const std::string& title, const std::string& parent, const char* activePort,
                         const std::string& card, int ports);
};
