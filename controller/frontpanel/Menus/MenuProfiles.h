// "Profile Config": the stored profiles. The list (CProfileSelect) creates a profile or
// chooses one; the actions (CProfileActions) apply, rename or delete the chosen one. EXIT
// goes from the actions back to the list and from the list to "Profile Status", the page that opens it.
#pragma once

#include "Menus/ProfileActions.h"
#include "Menus/ProfileSelect.h"
#include "ScreenManager/TavScreenMaster.h"

class CMenuProfiles : public CTavScreenMaster {
public:
    CMenuProfiles();

    CProfileSelect& Select() { return m_select; }
    CProfileActions& Actions() { return m_actions; }

protected:
    // The list, read afresh; after a takeover (an apply) the actions of the profile are
    // shown again.
    void OnEnter() override;
    std::string OnResult(int result) override;

private:
    CProfileSelect m_select;
    CProfileActions m_actions;
};
