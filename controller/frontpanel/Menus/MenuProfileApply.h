// Shows the state of a profile apply while the controller validates and applies it. The
// state is polled every 100 ms on the wake-up timer; CProfileApplyEvent starts and stops it.
#pragma once

#include <string>

#include "Menus/MenuImageUpdate.h"
#include "Qb/WakeUpTimer.h"

class CMenuProfileApply : public CTakeoverScreen, public Qb::IProcessRequests {
public:
    CMenuProfileApply();
    ~CMenuProfileApply() override;

    void SetWakeUpTimer(Qb::CWakeUpTimer* pTimer) { m_pApplyTimer = pTimer; }

    // With the manager's lock held: shows the state's text and starts the poll, unless it
    // runs already.
    void Start(Qb::int32 state);
    // With the manager's lock held: ends the poll.
    void Stop();
    // Shows the final text, waits 2 s; the lock stays held, so nothing draws over it.
    void ShowOutcome(Qb::int32 state);
    bool IsPolling() const { return m_uEventId != Qb::CWakeUpTimer::INVALID_ID; }

    // The 100 ms poll, on the wake-up timer's thread.
    void ProcessRequest() override;

    static std::string StateText(Qb::int32 state);

private:
    unsigned m_uEventId;
    Qb::CWakeUpTimer* m_pApplyTimer;
};
