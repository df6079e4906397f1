#include "ScreenManager/TavNavMenuScreen.h"

#include "ScreenManager/MenuStyle.h"

CTavNavMenuScreen::CTavNavMenuScreen(const std::string& style) : CTavEventScreen(style) {}

CTavNavMenuScreen::~CTavNavMenuScreen() {}

void CTavNavMenuScreen::Enter()
{
    PushToMenu();
    if (!m_bLoaded) {
        BuildMenu();
        PushToMenu();
        LoadValues();
        OnValuesLoaded();
        OnMenuLoaded();
        m_bLoaded = true;
    }
    OnEnter();
    m_pMenu->Redraw(2);
}
