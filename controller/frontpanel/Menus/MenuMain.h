// "Main Menu": the top-level sections, each opening its screen by name. Sections whose
// hardware the unit lacks are not offered (their screens are never built).
#pragma once

#include <vector>

#include "ScreenManager/Screen.h"

class CGenericLine;

class CMenuMain : public CScreen {
public:
    // t2mi: the unit has the T2-MI subsystem ("T2MI" is offered).
    explicit CMenuMain(bool t2mi);
    ~CMenuMain() override;

    // Further per-unit sections, set by the screen creator before the menu is first shown.
    void SetDecoderPresent(bool present);
    void SetConditionalAccessPresent(bool present);

private:
    void ShowSection(const char* label, bool shown);

    bool m_bT2Mi;
    std::vector<CGenericLine*> m_sections;  // in the order of the sections, not owned
};
