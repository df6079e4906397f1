// A screen made of minions (ScreenMinion.h): the master is the screen the manager knows;
// it hands keys and drawing to one minion at a time and turns the minions' result codes
// into moves between minions or a screen name for the manager. Concrete masters own their
// minions and decide the moves (OnEnter, OnResult).
//
// Threads: like every screen, keys and Enter run under the manager's lock; Refresh from
// another thread draws the current minion under that lock while on view.
#pragma once

#include <string>

#include "Qb/Types.h"
#include "ScreenManager/Screen.h"

class CScreenMinion;

class CTavScreenMaster : public CScreen {
public:
    // parent: where the master goes when its first minion is left.
    explicit CTavScreenMaster(const std::string& parent, const std::string& style = "Menu Style Basic");
    ~CTavScreenMaster() override;

    std::string HandleKey(const KeyPress_t& key) override;
    void Enter() override;
    void Refresh(int mode) override;
    bool IsEditing() override;

    CScreenMinion* GetMinion() const { return m_pMinion; }
    CTavClient* GetClient() const { return m_pClient; }
    CDisplay* GetDisplay() const { return m_pDisplay; }
    // The minions' message pauses; virtual so that tests can shorten them.
    virtual void Pause(Qb::uint32 ms);

protected:
    // Chooses the minion to show on entry (GiveControl).
    virtual void OnEnter() = 0;
    // A minion's result; returns the next screen's name ("No Screen" to stay).
    virtual std::string OnResult(int result) = 0;
    // Makes the minion current: it builds its lines and draws in full.
    void GiveControl(CScreenMinion* pMinion);

private:
    CScreenMinion* m_pMinion;  // not owned
};
