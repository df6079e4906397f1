// Base of the menus of sub-screens: the menu and its values (which entries the fitted
// hardware offers, texts that follow a value) are read once, on the first entry; the
// menu keeps no subscriptions.
#pragma once

#include "ScreenManager/TavEventScreen.h"

class CTavNavMenuScreen : public CTavEventScreen {
public:
    explicit CTavNavMenuScreen(const std::string& style = "Menu Style Basic");
    ~CTavNavMenuScreen() override;

    void Enter() override;

    // First entry, after the one read of the request list: the two steps in this order.
    virtual void OnValuesLoaded() {}
    virtual void OnMenuLoaded() {}
    // Every entry, before the drawing.
    virtual void OnEnter() {}
    // First entry: creates the entries and fills the request list (AddRequest).
    virtual void BuildMenu() {}
};
