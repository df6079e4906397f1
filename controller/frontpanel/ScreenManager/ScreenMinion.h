// One part of a screen master (TavScreenMaster.h): it has its own menu style, with its
// lines and selection, and answers every key with a result code for the master instead of
// a screen name. Only the master's current minion gets keys and draws.
#pragma once

#include <memory>
#include <string>

#include "KeyPad/KeyPress.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

class CDisplay;
class CMenuStyle;
class CTavClient;
class CTavScreenMaster;

class CScreenMinion : private Qb::CUncopyable {
public:
    enum Result_e {
        RESULT_STAY = 1,    // handled; stay on this minion
        RESULT_CHOSEN = 2,  // the minion's choice is made; the master moves on
        RESULT_LEAVE = 3,   // back to the previous minion, or out of the master
    };

    explicit CScreenMinion(CTavScreenMaster* pMaster);
    virtual ~CScreenMinion();

    // Makes the lines afresh, reading what they show. Called each time the minion gets
    // control.
    virtual void Build() = 0;
    virtual int HandleKey(const KeyPress_t& key) = 0;

    // The style's redraw (1: clear and title first, 2: the panel too).
    void Draw(int mode);
    bool IsEditing() const;
    CMenuStyle& Style() { return *m_pStyle; }

protected:
    // Drops the lines: a fresh basic style with this title and no selection.
    void ResetStyle(const std::string& title);
    // Hands a key to the style (moving, editing); its answer is not a screen here.
    void PassKey(const KeyPress_t& key);
    // The selected line's position among the shown lines.
    int SelectedIndex() const;
    // Rows 1 and 2 centred on a cleared panel, without key hints.
    void ShowMessage(const std::string& line1, const std::string& line2);
    void Pause(Qb::uint32 ms);
    CTavClient* Client() const;
    CDisplay* Display() const;
    // Gives client and display to the style: before every call into it.
    void Push();

    CTavScreenMaster* m_pMaster;
    std::unique_ptr<CMenuStyle> m_pStyle;  // owns the lines and the selection cursor
};
