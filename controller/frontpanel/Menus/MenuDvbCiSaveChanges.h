// The question asked when a staged CAM configuration is left with unapplied changes:
// "Yes" saves them, "No" drops them (nothing written); both go back to the slot's settings.
// EXIT returns to the configuration with the changes still waiting.
#pragma once

#include "ScreenManager/TavEventScreen.h"

class CGenericYesNoLine;
class CMenuDvbCiStaged;

class CMenuDvbCiSaveChanges : public CTavEventScreen {
public:
    // `pStaged`: the screen that asks (owned by the manager); `staged`: its name.
    CMenuDvbCiSaveChanges(CMenuDvbCiStaged* pStaged, const std::string& staged);

    void Enter() override;
    std::string HandleKey(const KeyPress_t& key) override;

private:
    CMenuDvbCiStaged* m_pStaged;
    std::string m_strStaged;
    CGenericYesNoLine* m_pAnswer;  // owned by the style
};
