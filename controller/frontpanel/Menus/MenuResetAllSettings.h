// "Reset All Settings": asks before putting every setting back to the factory's and
// restarting the unit. "No" (or EXIT) goes back and changes nothing.
#pragma once

#include "Qb/Types.h"
#include "ScreenManager/TavEventScreen.h"

class CGenericYesNoLine;

class CMenuResetAllSettings : public CTavEventScreen {
public:
    CMenuResetAllSettings();

    void Enter() override;
    std::string HandleKey(const KeyPress_t& key) override;

protected:
    // The message pause; tests shorten it.
    virtual void Pause(Qb::uint32 ms);

private:
    CGenericYesNoLine* m_pAnswer;  // owned by the style
};
