// Base of the lines whose value is typed character by character (text, key, hexadecimal and
// decimal numbers, address, date, time). ENTER starts editing a copy of the value, LEFT and
// RIGHT move the cursor (the field scrolls over values wider than the row), UP and DOWN step
// the character under it, ENTER commits and writes a bound object at once, EXIT abandons.
//
// A derived line supplies the edit copy with a character set per position (EditTemplate),
// turns the edited text back into its value (Accept, which may refuse it) and gives the
// text shown while idle (GetValue, or DisplayText when that differs).
#pragma once

#include <string>
#include <vector>

#include "Lines/FieldEditor.h"
#include "Lines/GenericLine.h"

class CEntryLine : public CGenericLine {
public:
    CEntryLine();

    bool HandleKey(const KeyPress_t& key) override;
    void Draw(int row) override;
    // While editing: the character under the cursor highlighted, or written plainly.
    void ShowCursor(int row) override;
    void HideCursor(int row) override;

    // True when the last ENTER while editing was refused (the value stayed as it was), so
    // that a screen can say why.
    bool WasRefused() const { return m_bRefused; }

protected:
    struct Template_t {
        std::string text;                   // the edit copy, one character per position
        std::vector<const CCharSet*> sets;  // per position; null for a fixed character
    };
    virtual Template_t EditTemplate() = 0;
    // Takes the edited text as the new value; false refuses it and keeps the old one.
    virtual bool Accept(const std::string& edited) = 0;
    // The text drawn while not editing.
    virtual std::string DisplayText() { return GetValue(); }

    const CFieldEditor& Editor() const { return m_editor; }
    int FieldWidth() const;

private:
    void Commit();

    CFieldEditor m_editor;
    bool m_bRefused;
    // The row on which the line was last drawn as being edited, else -1: only there is a
    // cursor to erase. The edit cursor's own row is no guide: its wrap-around moves it.
    int m_iDrawnRow;
};
