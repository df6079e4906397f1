// A choice between two texts shown side by side, the chosen one highlighted; LEFT and RIGHT
// move between them. Used on confirmation screens, where the menu style hands the line every
// key and acts on ENTER itself, and on row-edit screens.
//
//   SetIndex(i)        0 or 1 chooses (pending position and cursor); anything else changes
//                      nothing and still answers true
//   SetValue(text)     chooses the entry with that text; false when neither matches
//   GetValue()         the chosen entry's text
//   GetSelectedIndex() the chosen position
//   GetCommittedIndex() the position last set by SetIndex or SetValue
//
// A read-only line ignores every key. HandleKey always answers true.
#pragma once

#include <string>

#include "Lines/GenericLine.h"

class CTwoWayLine : public CGenericLine {
public:
    bool HandleKey(const KeyPress_t& key) override;
    bool SetIndex(int index) override;
    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override { return m_strEntries[m_iPending]; }
    void Draw(int row) override;
    void ShowCursor(int) override {}
    void HideCursor(int) override {}
    Qb::int32 GetSelectedIndex() override { return m_iPending; }
    Qb::int32 GetCommittedIndex() const { return m_iCommitted; }

protected:
    CTwoWayLine(const std::string& first, const std::string& second, Qb::uint8 idleHint, Qb::uint8 editHint);

private:
    std::string m_strEntries[2];
    Qb::int32 m_iCommitted;
    Qb::int32 m_iPending;
};
