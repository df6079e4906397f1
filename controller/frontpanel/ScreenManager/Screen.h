// Base of every screen: owns its menu style, answers each key with the name of the next
// screen, and draws itself only while it is on view (see docs/decisions.md, "Screen
// framework and threads").
#pragma once

#include <atomic>
#include <functional>
#include <string>

#include "KeyPad/KeyPress.h"
#include "Qb/Mutex.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"
#include "Zor/Param.h"

class CDisplay;
class CMenuStyle;
class CTavClient;
class CTavKeyPad;
namespace Qb {
class CWakeUpTimer;
}

class CScreen : private Qb::CUncopyable {
public:
    // "Menu Style Basic", "Menu Style Long List" or "Menu Style Yes No"; any other name is
    // a programming error and stops the program.
    explicit CScreen(const std::string& style);
    virtual ~CScreen();

    virtual std::string HandleKey(const KeyPress_t& key);
    virtual void Enter();
    virtual void Leave();
    // Redraws the screen if drawing is enabled and it is on view; safe from any thread.
    virtual void Refresh(int mode);
    virtual std::string GetName();
    virtual void SetName(const std::string& name);
    virtual bool IsEditing();
    virtual void SetEditing(bool on);
    virtual void SetClient(CTavClient* pClient);
    virtual void SetDisplay(CDisplay* pDisplay);
    virtual void SetCollaborator(CTavKeyPad* pKeyPad);
    virtual CMenuStyle* GetMenu();
    virtual std::string GetMenuName();
    virtual std::string GetBackName();
    virtual bool IsReadOnly();
    virtual void ReservedHook() {}
    virtual void SetDrawEnabled(bool on);

    // --- Thread rules (the manager calls the first three) ---
    // The manager's lock, held around everything that draws: key routing, screen switches,
    // event redraws and timer work. Null while the screen belongs to no manager.
    void SetDrawLock(Qb::CMutex* pLock) { m_pDrawLock = pLock; }
    // Set under the draw lock by the manager, false before Leave and true before Enter.
    void SetOnView(bool on) { m_bOnView.store(on); }
    bool IsOnView() const { return m_bOnView.load(); }
    // Waits until no event redraw or timer work of this screen is running.
    void WaitIdle() const;
    // For wake-up timer call-backs: runs work under the draw lock while the screen is on
    // view; returns false without running it once the screen is left. It never blocks on
    // the draw lock, so Leave may remove the timer event (which waits for a running
    // call-back) while it holds that lock.
    bool RunOnViewFromTimer(const std::function<void()>& work);
    // For change-event call-backs (the SDK's delivery thread): runs work under the draw lock
    // if drawing is enabled and the screen is on view; returns whether it ran. It waits for
    // the lock, as Refresh does: Leave never waits for a delivery in progress.
    bool RunOnViewFromEvent(const std::function<void()>& work);

protected:
    // Hands client and display to the style: done before every call into it.
    void PushToMenu();

    // Counts one event redraw or timer run of this screen while it lasts.
    class CBusy {
    public:
        explicit CBusy(const CScreen& screen) : m_rScreen(screen) { m_rScreen.m_iBusy.fetch_add(1); }
        ~CBusy() { m_rScreen.m_iBusy.fetch_sub(1); }
        CBusy(const CBusy&) = delete;
        CBusy& operator=(const CBusy&) = delete;

    private:
        const CScreen& m_rScreen;
    };

    CMenuStyle* m_pMenu;
    std::string m_strStyle;
    CTavClient* m_pClient;
    Qb::CWakeUpTimer* m_pTimer;
    CDisplay* m_pDisplay;
    CTavKeyPad* m_pCollaborator;
    Qb::CMutex* m_pScreenLock;  // "ScreenMutex": concrete screens' own timer work
    std::string m_strName;
    Zor::CParam m_value;
    Qb::uint32 m_uWord;
    bool m_bReadOnly;
    std::atomic<bool> m_bDrawEnabled;  // also read by event redraws

private:
    Qb::CMutex* m_pDrawLock;
    std::atomic<bool> m_bOnView;
    mutable std::atomic<int> m_iBusy;
};
