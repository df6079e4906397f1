// Base of the pages refreshed by a timer on the data client's shared wake-up timer.
//
// A polling page overrides ProcessRequest (empty here) and does its work through
// RunOnViewFromTimer, which runs it under the draw lock only while the page is on view:
//
//     void CMenuSystemTime::Enter()   { CTavPollScreen::Enter(); StartPolling(1000); }
//     void CMenuSystemTime::Leave()   { StopPolling(); }
//     void CMenuSystemTime::ProcessRequest() { RunOnViewFromTimer([this]() { ...; Redraw(); }); }
#pragma once

#include "Qb/WakeUpTimer.h"
#include "ScreenManager/TavEventScreen.h"

class CTavPollScreen : public CTavEventScreen, public Qb::IProcessRequests {
public:
    explicit CTavPollScreen(const std::string& style = "Menu Style Basic");
    // Ends the polling (a page must not be deleted while its call-back may run).
    ~CTavPollScreen() override;

    std::string HandleKey(const KeyPress_t& key) override;
    void Enter() override;
    void Leave() override;
    // Draws with mode 1 while drawing is enabled and the page is on view.
    void Refresh(int mode) override;
    void OnManagedEvent(const std::string& name, const Zor::COid& instance,
                        const Zor::CParam& value) override;
    void ProcessRequest() override {}

protected:
    // Schedules ProcessRequest every intervalMs on the client's wake-up timer (once
    // only: a second call while polling changes nothing). False without a client.
    bool StartPolling(Qb::uint32 intervalMs);
    // Removes the event and waits for a running call-back; safe from Leave, which holds
    // the draw lock (the call-back never blocks on it).
    void StopPolling();
    bool IsPolling() const { return m_uPollId != Qb::CWakeUpTimer::INVALID_ID; }

private:
    unsigned m_uPollId;
};
