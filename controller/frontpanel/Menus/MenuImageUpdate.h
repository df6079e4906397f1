// The screens that take the panel over while a long operation of the unit runs (an image
// update, a profile apply) and then give it back to the screen that was on view. They are
// not in the menu tree: the manager never switches to them, and the screen on view stays
// current underneath.
#pragma once

#include <memory>
#include <string>

#include "Qb/Mutex.h"
#include "Qb/Types.h"
#include "ScreenManager/Screen.h"

class CScreenManager;

// What both takeover screens share: the manager's lock, putting the screen on view aside
// and bringing it back. Begin, Show and End are called with the manager's lock held.
class CTakeoverScreen : public CScreen {
public:
    CTakeoverScreen();
    ~CTakeoverScreen() override;

    // The manager whose screen on view is taken over; its "ScreenManMutex" is the lock.
    void SetManager(CScreenManager* pManager);
    Qb::CMutex* ManagerLock() const { return m_pManagerLock; }
    bool IsTakenOver() const { return m_bTaken; }

    // The screen on view stops drawing and is left (its subscriptions and timer work end,
    // the home page's address poll included); the panel is cleared, without key hints.
    void Begin();
    // Gives the panel back: the screen on view is entered again, which reads its values
    // afresh and redraws it in full. The selection is kept.
    void End();

protected:
    // Writes a text on a row of a cleared panel (the texts carry their own blanks).
    void ShowRow(const std::string& text, int row, bool clear);
    // Pauses are virtual so that tests can count them instead of waiting.
    virtual void Pause(Qb::uint32 ms);
    // A number read from the controller; a failed read counts as 0.
    virtual Qb::int32 ReadNumber(const char* name);

    CScreenManager* m_pManager;

private:
    Qb::CMutex* m_pManagerLock;
    CScreen* m_pTaken;
    bool m_bTaken;
};

// Shows the stages and the progress of an image update, then its outcome for 5 s.
class CMenuImageUpdate : public CTakeoverScreen {
public:
    CMenuImageUpdate();

    // Runs on the event thread until the update is over; call with the manager's lock held
    // and the panel taken over.
    void Run();
    // The text of the progress row ("         Updating: 42%").
    static std::string ProgressText(const std::string& stage, Qb::int32 percent);
};
