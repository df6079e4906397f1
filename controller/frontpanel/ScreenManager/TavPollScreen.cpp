#include "ScreenManager/TavPollScreen.h"

#include "ScreenManager/MenuStyle.h"

CTavPollScreen::CTavPollScreen(const std::string& style)
    : CTavEventScreen(style), m_uPollId(Qb::CWakeUpTimer::INVALID_ID)
{
}

CTavPollScreen::~CTavPollScreen()
{
    StopPolling();
}

std::string CTavPollScreen::HandleKey(const KeyPress_t& key)
{
    return CTavEventScreen::HandleKey(key);
}

void CTavPollScreen::Enter()
{
    PushToMenu();
    m_pMenu->Redraw(2);
}

void CTavPollScreen::Leave() {}

void CTavPollScreen::Refresh(int)
{
    // Deliberately mode 1 whatever is asked, and without pushing client and display again:
    // the page's own timer work keeps them.
    RunOnViewFromEvent([this]() { m_pMenu->Redraw(1); });
}

void CTavPollScreen::OnManagedEvent(const std::string&, const Zor::COid&, const Zor::CParam&)
{
    Refresh(1);
}

bool CTavPollScreen::StartPolling(Qb::uint32 intervalMs)
{
    if (m_pTimer == nullptr)
        return false;
    if (IsPolling())
        return true;
    return m_pTimer->AddEvent(this, intervalMs, m_uPollId, true);
}

void CTavPollScreen::StopPolling()
{
    if (m_pTimer != nullptr && IsPolling())
        m_pTimer->RemoveEvent(m_uPollId);
    m_uPollId = Qb::CWakeUpTimer::INVALID_ID;
}
