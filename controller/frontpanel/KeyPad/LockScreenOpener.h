// What the key press monitor needs of the screens: which one is on view, and a way to
// bring up the panel-lock screen. The screen manager offers it; the keypad library knows
// no more of the screens than this.
#pragma once

#include <string>

class ILockScreenOpener {
public:
    virtual ~ILockScreenOpener() {}
    virtual std::string GetCurrentName() = 0;
    // Called from the wake-up timer's thread.
    virtual void ShowLockScreen() = 0;
};
