// A setting chosen from a fixed list of texts ("Enabled" / "Disabled", modulations, frame
// rates). Entries may be hidden (options this unit lacks): they keep their index but are
// never offered.
//
//   CGenericList()
//   AddEntry(text)          the next entry (index 0, 1, ...); returns its index
//   AddEntry(text, value)   the same, exchanged with the controller as `value` (an id or a
//                           code) rather than as its text
//   ClearEntries()          no entries, nothing committed (a list made again)
//   HideEntry(i) / ShowEntry(i), IsHidden(i), GetEntryCount()
//   SetIndex(i)             commits entry i; false when out of range or hidden
//   SetValue(text)          commits the first entry whose controller text is exactly `text`
//                           (the entry text unless given); false and no change otherwise
//   GetValue()              controller text of the shown entry (the pending one while
//                           editing); empty with no entries
//   GetText()               the shown entry's own text
//   GetCommittedIndex()
//   SetCommitHandler(f)     called with the line after ENTER commits a choice
//
// While editing, UP shows the next entry and DOWN the previous one, both wrapping; ENTER
// commits and writes a bound object at once; EXIT goes back to the committed entry. A list
// with nothing to offer does not start editing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Lines/GenericLine.h"

class CGenericList : public CGenericLine {
public:
    CGenericList();

    int AddEntry(const std::string& text);
    int AddEntry(const std::string& text, const std::string& value);
    // Removes every entry (a list read from the controller, made again); nothing is chosen.
    void ClearEntries();
    bool HideEntry(int index);
    bool ShowEntry(int index);
    bool IsHidden(int index) const;
    int GetEntryCount() const { return static_cast<int>(m_entries.size()); }
    int GetCommittedIndex() const { return m_iCommitted; }
    void SetCommitHandler(std::function<void(CGenericList&)> handler) { m_onCommit = handler; }

    bool HandleKey(const KeyPress_t& key) override;
    bool SetIndex(int index) override;
    bool SetValue(const char* value) override;
    bool SetValue(const std::string& value) override { return SetValue(value.c_str()); }
    std::string GetValue() override;
    std::string GetText() override;
    void Draw(int row) override;
    void ShowCursor(int) override {}
    void HideCursor(int) override {}

protected:
    struct Entry_t {
        std::string text;
        std::string value;
    };
    // The entry that is shown: pending while editing, else committed; null when none.
    const Entry_t* Shown() const;

private:
    int EntryAt(int position) const;
    int PositionOf(int index) const;
    void PlaceCursor();

    std::vector<Entry_t> m_entries;
    Qb::int32 m_iCommitted;
    Qb::int32 m_iPending;
    std::vector<Qb::int32> m_hidden;  // ascending
    Qb::int32 m_iHiddenCount;
    std::function<void(CGenericList&)> m_onCommit;
};
