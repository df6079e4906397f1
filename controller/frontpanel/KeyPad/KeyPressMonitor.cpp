#include "KeyPad/KeyPressMonitor.h"

#include "KeyPad/LockScreenOpener.h"

namespace {
const char* const kLockScreen = "Lock/Unlock Front Panel";
}

CKeyPressMonitor::CKeyPressMonitor(ILockScreenOpener* pScreenManager, Qb::CWakeUpTimer* pTimer)
    : m_bComboActive(false),
      m_bHold(false),
      m_pComboMutex(new Qb::CMutex("TavComboKeyPress")),
      m_pTimer(pTimer),
      m_uEventId(Qb::CWakeUpTimer::INVALID_ID),
      m_handler(this),
      m_pScreenManager(pScreenManager)
{
    for (int key = KEY_NONE; key < KEY_COUNT; ++key)
        m_keys[key] = KEY_STATE_UP;
}

CKeyPressMonitor::~CKeyPressMonitor()
{
    // Waits for a running call-back, so none runs on a deleted monitor.
    DisarmLockTimer();
    delete m_pComboMutex;
}

bool CKeyPressMonitor::OnEvent(CEventHandler*, int id, void* pTable, void* pHold)
{
    if (id != KEYPAD_EVENT_COMBO_DOWN && id != KEYPAD_EVENT_COMBO_UP)
        return false;
    const KeyStateTable_t* pKeys = static_cast<const KeyStateTable_t*>(pTable);
    if (pKeys != nullptr && pKeys != &m_keys)
        m_keys = *pKeys;
    m_bHold = pHold != nullptr && *static_cast<const bool*>(pHold);
    EvaluateCombo();
    return true;
}

void CKeyPressMonitor::EvaluateCombo()
{
    auto isDown = [this](int key) {
        auto it = m_keys.find(key);
        return it != m_keys.end() && it->second == KEY_STATE_DOWN;
    };
    // The same test for both event ids: a combination-down event without the hold flag
    // disarms too.
    if (isDown(KEY_LEFT) && isDown(KEY_RIGHT) && m_bHold) {
        m_bComboActive = true;
        ArmLockTimer();
    } else {
        m_bComboActive = false;
        DisarmLockTimer();
    }
}

void CKeyPressMonitor::ArmLockTimer()
{
    Qb::CMutexLocker lock(*m_pComboMutex);
    if (m_uEventId == Qb::CWakeUpTimer::INVALID_ID && m_pTimer != nullptr)
        m_pTimer->AddEvent(this, LOCK_INTERVAL_MS, m_uEventId, true);
}

void CKeyPressMonitor::DisarmLockTimer()
{
    // The pending id is taken under the lock, but removed after releasing it: from another
    // thread RemoveEvent waits for a running call-back, and the call-back takes this lock.
    unsigned id;
    {
        Qb::CMutexLocker lock(*m_pComboMutex);
        id = m_uEventId;
        m_uEventId = Qb::CWakeUpTimer::INVALID_ID;
    }
    if (id != Qb::CWakeUpTimer::INVALID_ID && m_pTimer != nullptr)
        m_pTimer->RemoveEvent(id);
}

bool CKeyPressMonitor::IsArmed()
{
    Qb::CMutexLocker lock(*m_pComboMutex);
    return m_uEventId != Qb::CWakeUpTimer::INVALID_ID;
}

void CKeyPressMonitor::ProcessRequest()
{
    Qb::CMutexLocker lock(*m_pComboMutex);
    if (m_bComboActive && m_pScreenManager != nullptr && m_pScreenManager->GetCurrentName() != kLockScreen)
        m_pScreenManager->ShowLockScreen();
    DisarmLockTimer();  // on the timer thread: removing its own event never waits
}
