// "Change Password": the old panel password, then the new one; ENTER on the new one checks
// the old against the controller's and writes the new.
#pragma once

#include <string>

#include "Qb/Types.h"
#include "ScreenManager/Screen.h"

class CGenericStringLine;

class CMenuChangePanelPassword : public CScreen {
public:
    CMenuChangePanelPassword();

    std::string HandleKey(const KeyPress_t& key) override;
    // Every entry starts with empty entries.
    void Enter() override;

protected:
    // The message pause; a test may look at the panel here instead of waiting.
    virtual void Pause(Qb::uint32 ms);

private:
    void ShowMessage(const std::string& line1, const std::string& line2);
    void ClearEntries();

    CGenericStringLine* m_pOld;  // owned by the style's lines
    CGenericStringLine* m_pNew;
};
