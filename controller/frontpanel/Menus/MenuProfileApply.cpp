#include "Menus/MenuProfileApply.h"

#include "Client/TavClient.h"

namespace {

const Qb::uint32 kPollMs = 100;
const Qb::uint32 kOutcomeMs = 2000;

}  // namespace

CMenuProfileApply::CMenuProfileApply() : m_uEventId(Qb::CWakeUpTimer::INVALID_ID), m_pApplyTimer(nullptr) {}

CMenuProfileApply::~CMenuProfileApply()
{
    SetOnView(false);
    if (m_pApplyTimer != nullptr && m_uEventId != Qb::CWakeUpTimer::INVALID_ID)
        m_pApplyTimer->RemoveEvent(m_uEventId);
}

std::string CMenuProfileApply::StateText(Qb::int32 state)
{
    switch (state) {
        case 0:
            return "Validating Profile...";
        case 1:
            return "Applying Profile Failed";
        case 2:
            return "Profile is Valid";
        case 4:
            return "Applying Profile Succeeded";
        default:
            return "Applying Profile...";
    }
}

void CMenuProfileApply::Start(Qb::int32 state)
{
    ShowRow(StateText(state), 2, true);
    if (m_pApplyTimer != nullptr && m_uEventId == Qb::CWakeUpTimer::INVALID_ID)
        m_pApplyTimer->AddEvent(this, kPollMs, m_uEventId, true);
}

void CMenuProfileApply::Stop()
{
    // Off view first: a poll waiting for the lock gives up, so the removal (which waits
    // for a running call-back) cannot wait for ever.
    SetOnView(false);
    if (m_pApplyTimer != nullptr && m_uEventId != Qb::CWakeUpTimer::INVALID_ID)
        m_pApplyTimer->RemoveEvent(m_uEventId);
    m_uEventId = Qb::CWakeUpTimer::INVALID_ID;
}

void CMenuProfileApply::ShowOutcome(Qb::int32 state)
{
    ShowRow(StateText(state), 2, true);
    Pause(kOutcomeMs);
}

void CMenuProfileApply::ProcessRequest()
{
    RunOnViewFromTimer([this]() {
        Qb::CMutexLocker lock(*m_pScreenLock);
        if (m_pClient != nullptr)
            m_pClient->AttachThread();
        // The whole frame, so that a key handled by the screen underneath shows for at
        // most one poll.
        ShowRow(StateText(ReadNumber("profileApplyProfileState")), 2, true);
        if (m_pClient != nullptr)
            m_pClient->DetachThread();
    });
}
