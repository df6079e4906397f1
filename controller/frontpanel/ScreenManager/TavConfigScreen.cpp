#include "ScreenManager/TavConfigScreen.h"

#include "ScreenManager/MenuStyle.h"

CTavConfigScreen::CTavConfigScreen(const std::string& style) : CTavEventScreen(style) {}

CTavConfigScreen::~CTavConfigScreen() {}

void CTavConfigScreen::Enter()
{
    PushToMenu();
    if (!m_bLoaded) {
        BuildLines();
        PushToMenu();  // new lines get the client and display
        LoadValues();
        m_pMenu->SetMenuName(m_strMenuNameText);
        m_bLoaded = true;
    } else {
        LoadValues();  // values are always fresh on entry
    }
    SubscribeAll();
    AfterLoad();
    UpdateLockModeAsLoaded();
    m_pMenu->Redraw(2);
}

void CTavConfigScreen::Leave()
{
    UnsubscribeValues();
}

void CTavConfigScreen::SubscribeAll()
{
    SubscribeValues();
}
