// The daemon's screen manager: hands every screen the display, the keypad and the data
// client, switches screens by name and offers the jump to the panel-lock screen.
#pragma once

#include "ScreenManager/ScreenManager.h"

class CDisplay;
class CTavClient;
class CTavKeyPad;

class CTavScreenManager : public CScreenManager {
public:
    CTavScreenManager(CTavKeyPad* pKeyPad, CDisplay* pDisplay, CTavClient* pClient);
    ~CTavScreenManager() override;

    void AddScreen(CScreen* pScreen, const std::string& name) override;
    // Brings up "Lock/Unlock Front Panel"; called from threads other than the key thread.
    void ShowLockScreen() override;
    // Leaves the screen on view and enters the named one; unknown names change nothing.
    void ChangeScreen(const std::string& name) override;

private:
    CDisplay* m_pDisplay;
    CTavKeyPad* m_pKeyPad;
    CTavClient* m_pClient;
};
