#include "ScreenManager/TavStatusScreen.h"

#include "ScreenManager/MenuStyle.h"

CTavStatusScreen::CTavStatusScreen(const std::string& style) : CTavEventScreen(style), m_iUpdates(0) {}

CTavStatusScreen::~CTavStatusScreen() {}

std::string CTavStatusScreen::HandleKey(const KeyPress_t& key)
{
    return CTavEventScreen::HandleKey(key);
}

void CTavStatusScreen::Enter()
{
    PushToMenu();
    if (!m_bLoaded) {
        BuildLines();
        PushToMenu();
        m_bLoaded = true;
    }
    LoadValues();
    SubscribeAll();
    AfterLoad();
    UpdateLockModeAsLoaded();
    m_iUpdates = 0;
    UpdateLines(2);
}

void CTavStatusScreen::Leave()
{
    UnsubscribeValues();
}

void CTavStatusScreen::OnManagedEvent(const std::string& name, const Zor::COid& instance,
                                      const Zor::CParam& value)
{
    // Under the draw lock: entry reloads the cache on the key thread under the same lock,
    // and an event that arrives after its page was left is dropped (entry reads again).
    RunOnViewFromEvent([&]() {
        std::string where = m_strEventInstance.empty() ? instance.OidStr() : m_strEventInstance;
        if (!m_values.IsMap())
            m_values.Clear(Zor::PT_MAP);
        m_values[name][where] = value;
        ++m_iUpdates;
        UpdateLines(1);
    });
}

void CTavStatusScreen::UpdateLines(int mode)
{
    PushToMenu();
    m_pMenu->Redraw(mode);
}

void CTavStatusScreen::SubscribeAll()
{
    SubscribeValues();
}
