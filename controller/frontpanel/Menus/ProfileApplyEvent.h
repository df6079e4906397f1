// Watches "profileApplyProfileState": state 0 lets CMenuProfileApply take the panel over,
// 1 (failed) and 4 (succeeded) end the takeover after showing the outcome for 2 s; the
// states between are shown by the screen's poll. Start-up creates it, hands it the display,
// the keypad, the data client and the client's wake-up timer, and subscribes it to
// "profileApplyProfileState" (".%").
#pragma once

#include <atomic>
#include <string>

#include "Qb/Types.h"
#include "Qb/Uncopyable.h"
#include "Zor/EventSink.h"

class CDisplay;
class CMenuProfileApply;
class CScreenManager;
class CTavClient;
class CTavKeyPad;
namespace Qb {
class CWakeUpTimer;
}

class CProfileApplyEvent : public Zor::IManagedEventSink, private Qb::CUncopyable {
public:
    explicit CProfileApplyEvent(CScreenManager* pManager);
    ~CProfileApplyEvent() override;

    // Stores the three and hands them, in this order, to the screen, with the timer.
    void Setup(CDisplay* pDisplay, CTavKeyPad* pKeyPad, CTavClient* pClient, Qb::CWakeUpTimer* pTimer);
    // Later events are ignored, a takeover in progress ends and a running delivery is
    // waited for. Call before the manager is deleted: this sink's subscription outlives it.
    void Stop();

    void ManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value) override;

    // "true" 1, "false" 0, else a decimal number; false for any other text.
    static bool ParseState(const std::string& text, Qb::int32* pState);

    CMenuProfileApply* GetScreen() { return m_pScreen; }
    const std::string& GetSinkName() const { return m_strName; }

private:
    std::string m_strName;
    CScreenManager* m_pManager;
    CMenuProfileApply* m_pScreen;
    CDisplay* m_pDisplay;
    CTavKeyPad* m_pKeyPad;
    CTavClient* m_pClient;
    std::atomic<bool> m_bStopped;
    std::atomic<int> m_iBusy;
};
