// Watches for LEFT and RIGHT held together (in the keypad's hold state) for 5 s and then
// brings up the panel-lock screen.
#pragma once

#include <atomic>

#include "Client/EventHandler.h"
#include "KeyPad/KeyPress.h"
#include "Qb/Mutex.h"
#include "Qb/WakeUpTimer.h"

class ILockScreenOpener;

class CKeyPressMonitor : public Qb::IProcessRequests {
public:
    // Neither pointer is owned; both must outlive the monitor.
    CKeyPressMonitor(ILockScreenOpener* pScreenManager, Qb::CWakeUpTimer* pTimer);
    ~CKeyPressMonitor() override;

    // Wake-up timer call-back: the combination has been held for the whole interval.
    void ProcessRequest() override;
    // Keypad events: only the combination events are handled (true); others give false.
    virtual bool OnEvent(CEventHandler* pHandler, int id, void* pTable, void* pHold);

    void ArmLockTimer();
    void DisarmLockTimer();

    CEventHandler* GetEventHandler() { return &m_handler; }
    bool IsComboActive() const { return m_bComboActive.load(); }
    bool IsArmed();

    enum { LOCK_INTERVAL_MS = 5000 };

private:
    void EvaluateCombo();

    KeyStateTable_t m_keys;            // written on the watcher thread only
    std::atomic<bool> m_bComboActive;  // read by the timer call-back
    bool m_bHold;
    Qb::CMutex* m_pComboMutex;  // "TavComboKeyPress": guards m_uEventId
    Qb::CWakeUpTimer* m_pTimer;
    unsigned m_uEventId;
    TEventHandler<CKeyPressMonitor> m_handler;
    ILockScreenOpener* m_pScreenManager;
};
