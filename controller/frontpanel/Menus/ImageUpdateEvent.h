// Watches "updateStart" and lets CMenuImageUpdate take the panel over for the whole
// update. Start-up creates it, hands it the display, the keypad and the data client, and
// subscribes it to "updateStart" (".%").
#pragma once

#include <atomic>
#include <string>

#include "Qb/Types.h"
#include "Qb/Uncopyable.h"
#include "Zor/EventSink.h"

class CDisplay;
class CMenuImageUpdate;
class CScreenManager;
class CTavClient;
class CTavKeyPad;

class CImageUpdateEvent : public Zor::IManagedEventSink, private Qb::CUncopyable {
public:
    explicit CImageUpdateEvent(CScreenManager* pManager);
    ~CImageUpdateEvent() override;

    // Stores the three and hands them, in this order, to the screen.
    void Setup(CDisplay* pDisplay, CTavKeyPad* pKeyPad, CTavClient* pClient);
    // Later events are ignored and a running delivery is waited for. Call before the
    // manager is deleted: the screen on view must not be touched after that.
    void Stop();

    void ManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value) override;

    CMenuImageUpdate* GetScreen() { return m_pScreen; }
    const std::string& GetSinkName() const { return m_strName; }

private:
    std::string m_strName;
    CScreenManager* m_pManager;
    CMenuImageUpdate* m_pScreen;
    CDisplay* m_pDisplay;
    CTavKeyPad* m_pKeyPad;
    CTavClient* m_pClient;
    std::atomic<bool> m_bStopped;
    std::atomic<int> m_iBusy;
};
