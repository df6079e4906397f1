// "BISS" (the operation mode): descrambling off, every PID with the selected key, or the
// selected services with one key; and which key is in use. Both lists name the keys by
// their aliases, read afresh on every entry.
#pragma once

#include "ScreenManager/TableScreen.h"

class CMenuBissSetting : public CConfigTableScreen {
public:
    CMenuBissSetting();

    void BuildLines() override;
    void AfterLoad() override;
};
