// Holds every screen by name, knows the one on view, routes key events to it and switches
// screens by the names the screens answer. Owns the screens.
#pragma once

#include <atomic>
#include <map>
#include <string>
#include <vector>

#include "Client/EventHandler.h"
#include "KeyPad/KeyPress.h"
#include "KeyPad/LockScreenOpener.h"
#include "Qb/Mutex.h"
#include "Qb/Uncopyable.h"

class CScreen;

class CScreenManager : public ILockScreenOpener, private Qb::CUncopyable {
public:
    CScreenManager();
    virtual ~CScreenManager();

    virtual void RouteKey(const KeyPress_t& key);
    // Takes ownership; when the name is taken the earlier screen keeps it.
    virtual void AddScreen(CScreen* pScreen, const std::string& name);
    virtual void ShowScreenLocked(const std::string& name);
    // Event entry of the keypad's handler: type 1 (a key) is routed, others refused.
    virtual bool OnEvent(CEventHandler* pHandler, int type, void* pEvent, void* pExtra);
    void ShowLockScreen() override {}
    std::string GetCurrentName() override;
    virtual CScreen* GetCurrentScreen();
    virtual void ChangeScreen(const std::string&) {}

    // The handler to register with the keypad (forwards to OnEvent).
    CEventHandler* GetEventHandler() { return &m_handler; }
    bool IsNavigated() const { return m_bNavigated.load(); }
    bool IsLockRequested() const { return m_bLockRequested.load(); }

    static const char* KeyName(int key);
    static const char* StateName(int state);

protected:
    // Call with the lock held. Null for an unknown name. Deliberately indexes the map, so an unknown name is
    // left behind with a null screen.
    CScreen* FindScreen(const std::string& name);
    // Call with the lock held.
    bool HasScreens() const { return !m_screens.empty(); }

    CScreen* m_pCurrent;
    std::map<std::string, CScreen*> m_screens;
    // "ScreenManMutex": every drawing path of every screen runs under it (see
    // docs/decisions.md). Recursive; taken after the key press monitor's lock.
    Qb::CMutex* m_pLock;
    TEventHandler<CScreenManager> m_handler;
    std::atomic<bool> m_bNavigated;  // also set from the timer thread
    std::atomic<bool> m_bLockRequested;

private:
    std::vector<CScreen*> m_refused;  // added under a taken name; deleted with the manager
};
