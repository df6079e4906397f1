// "Lock/Unlock Front Panel": sets the first panel password, locks or disables the panel,
// unlocks it with the password and leads to the password change. The password and the lock
// mode live in the controller; the screen reads them again on every entry and after every
// message, so it always offers the action that fits the current mode.
#pragma once

#include <string>
#include <vector>

#include "Qb/Types.h"
#include "ScreenManager/PanelMessage.h"
#include "ScreenManager/TavEventScreen.h"

class CDisplay;
class CGenericDisplayLine;
class CGenericList;
class CGenericStringLine;
class CMenuStyle;

// Lock modes of "frontpanelLockMode.0".
enum PanelLockMode_e { LOCK_MODE_NONE = 1, LOCK_MODE_LOCKED = 2, LOCK_MODE_DISABLED = 3 };

// Shortest password the panel accepts.
const int kMinPanelPasswordLength = 3;
class CMenuFrontpanelLock : public CTavEventScreen {
public:
    CMenuFrontpanelLock();

    std::string HandleKey(const KeyPress_t& key) override;
    void Enter() override;

    // "Set Panel Password", "Lock Panel" or "Unlock Panel" (also the title).
    const std::string& GetAction() const { return m_strAction; }

protected:
    // The message pause; a test may look at the panel here instead of waiting.
    virtual void Pause(Qb::uint32 ms);

private:
    // Reads the password and the lock mode and lays the screen out for them.
    void Build();
    // The message, the pause, then the screen rebuilt from the controller's values.
    void ShowMessage(const std::string& line1, const std::string& line2);
    std::string Password() const;
    Qb::int32 LockMode() const;

    std::string m_strAction;
    std::vector<std::string> m_modeTexts;
    // The current layout's lines, owned by the style (null when not in this layout).
    CGenericStringLine* m_pNewPassword;
    CGenericStringLine* m_pPassword;
    CGenericList* m_pLockMode;
    CGenericDisplayLine* m_pChangeLink;
};
