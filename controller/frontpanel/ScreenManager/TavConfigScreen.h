// Base of the settings pages: every entry reads the page's values afresh and subscribes to
// them; leaving ends the subscriptions, so they exist only while the page is on view.
#pragma once

#include "ScreenManager/TavEventScreen.h"

class CTavConfigScreen : public CTavEventScreen {
public:
    explicit CTavConfigScreen(const std::string& style = "Menu Style Basic");
    ~CTavConfigScreen() override;

    void Enter() override;
    void Leave() override;

    virtual void SubscribeAll();
    // Creates the page's lines and fills the request list (AddRequest); first entry only.
    virtual void BuildLines() = 0;
    // After the values are read and subscribed, before the lock mode and the drawing.
    virtual void AfterLoad() {}

    // The name text handed to the menu style on the first entry.
    void SetMenuNameText(const std::string& name) { m_strMenuNameText = name; }

protected:
    std::string m_strMenuNameText;
};
