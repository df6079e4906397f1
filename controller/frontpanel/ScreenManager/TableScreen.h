// Screens told by a table of CRow rows (Rows.h): the table makes the lines, fills the
// request list, binds editable lines to their objects, turns cached values into the texts
// of shown values, shows and hides rows by their conditions and repeats record rows per
// instance. A screen of this kind is its table plus the few handlers that are really its
// own; docs/screens.md shows how to write one.
#pragma once

#include <cstddef>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "ScreenManager/Rows.h"
#include "ScreenManager/TavConfigScreen.h"
#include "ScreenManager/TavStatusScreen.h"

class CMenuStyle;
class CGenericLine;

// The rows of one screen and the lines made from them.
class CLineTable {
public:
    // The rows, kept by the table.
    CLineTable(std::vector<CRow> rows, bool editable);
    // Rows of a table that outlives this one (a screen's static table): referred to, not
    // copied, as a tree of screens per card would otherwise hold many copies of them.
    CLineTable(const CRow* pRows, size_t count, bool editable);

    // The instance that kCard stands for (".1.2").
    void SetCard(const std::string& instance) { m_strCard = instance; }
    const std::string& GetCard() const { return m_strCard; }

    // The keys of every row, kEach rows as "name.%" patterns.
    std::vector<std::string> Requests() const;
    // Makes the lines in the style, one per row, one per listed instance of a kEach row and
    // one group per record. Made again (all of them, in table order) only when those
    // instances changed; false when nothing was made.
    bool Make(CMenuStyle& style, const Zor::CParam& values);
    // Sets labels, shown rows and the text rows from the cached values; with `all`, also
    // seeds the editable lines.
    void Fill(CMenuStyle& style, const Zor::CParam& values, bool all);
    // The panel lock on every line made, hidden ones too; rows declared read-only stay so.
    void ApplyLockMode(bool readOnly);
    // The line made for a row's object and instance; null if none.
    CGenericLine* Find(const std::string& object, const std::string& instance) const;
    // The row a line was made from; null if none.
    const CRow* RowOf(const CGenericLine* pLine) const;
    // Makes the lines again if the instances changed (see Make), fills them, and keeps the
    // selection on the row it was on when that row is still there. True when made again.
    bool Update(CMenuStyle& style, const Zor::CParam& values);
    // True when the object is read as a pattern (its instances make rows).
    bool IsPattern(const std::string& object) const;
    int Count() const { return static_cast<int>(m_made.size()); }

private:
    struct Made_t {
        const CRow* pRow;
        std::string instance;
        CGenericLine* pLine;
        std::vector<std::pair<std::string, std::string>> entries;  // a From list's, as last set
    };

    void Keep(const CRow* pRows, size_t count);
    std::string Resolve(const std::string& instance) const;
    std::vector<std::string> InstancesOf(const CRow& row, const Zor::CParam& values) const;
    std::vector<std::vector<std::string>> Shape(const Zor::CParam& values) const;
    void MakeLine(CMenuStyle& style, const CRow& row, const std::string& instance, const Zor::CParam& values);

    std::vector<CRow> m_owned;          // rows given by value
    std::vector<const CRow*> m_rows;  // the rows present on this unit, in table order
    bool m_bEditable;
    std::string m_strCard;
    bool m_bMade;
    std::vector<std::vector<std::string>> m_shape;  // instances of each kEach row and record
    std::vector<Made_t> m_made;
};

// A settings page (or a menu) told by its table: every entry reads the values afresh; a
// change event refreshes the rows from the event and redraws (editable lines read their
// object at every redraw).
class CConfigTableScreen : public CTavConfigScreen {
public:
    CConfigTableScreen(const std::string& title, const std::string& parent, std::vector<CRow> lines,
                       const std::string& style = "Menu Style Basic");
    // A static table, referred to rather than copied.
    CConfigTableScreen(const std::string& title, const std::string& parent, const CRow* pLines, size_t count,
                       const std::string& style = "Menu Style Basic");
    template <std::size_t N>
    CConfigTableScreen(const std::string& title, const std::string& parent, const CRow (&lines)[N],
                       const std::string& style = "Menu Style Basic")
        : CConfigTableScreen(title, parent, lines, N, style)
    {
    }
    // A braced list of rows is a temporary: kept by value.
    template <std::size_t N>
    CConfigTableScreen(const std::string& title, const std::string& parent, CRow (&&lines)[N],
                       const std::string& style = "Menu Style Basic")
        : CConfigTableScreen(title, parent, std::vector<CRow>(std::make_move_iterator(lines), std::make_move_iterator(lines + N)),
                             style)
    {
    }

    void BuildLines() override;
    void AfterLoad() override;
    void SubscribeAll() override;
    void ApplyLockMode(bool readOnly) override;
    void OnManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value) override;
    std::string HandleKey(const KeyPress_t& key) override;

    CLineTable& Table() { return m_table; }

protected:
    void Name(const std::string& title, const std::string& parent);
    // The message pause; tests shorten it.
    virtual void Pause(Qb::uint32 ms);
    // Shows a two-row message for a moment, then the screen again (unless it is being left).
    void ShowMessage(const std::string& line1, const std::string& line2, bool redraw = true);

private:
    CLineTable m_table;
};

// A status page told by its table: the rows show cached values as texts, updated from
// each change event.
class CStatusTableScreen : public CTavStatusScreen {
public:
    CStatusTableScreen(const std::string& title, const std::string& parent, std::vector<CRow> lines,
                       const std::string& style = "Menu Style Basic");
    // A static table, referred to rather than copied.
    CStatusTableScreen(const std::string& title, const std::string& parent, const CRow* pLines, size_t count,
                       const std::string& style = "Menu Style Basic");
    template <std::size_t N>
    CStatusTableScreen(const std::string& title, const std::string& parent, const CRow (&lines)[N],
                       const std::string& style = "Menu Style Basic")
        : CStatusTableScreen(title, parent, lines, N, style)
    {
    }
    // A braced list of rows is a temporary: kept by value.
    template <std::size_t N>
    CStatusTableScreen(const std::string& title, const std::string& parent, CRow (&&lines)[N],
                       const std::string& style = "Menu Style Basic")
        : CStatusTableScreen(title, parent, std::vector<CRow>(std::make_move_iterator(lines), std::make_move_iterator(lines + N)),
                             style)
    {
    }

    void BuildLines() override;
    void AfterLoad() override;
    void SubscribeAll() override;
    void UpdateLines(int mode) override;

    CLineTable& Table() { return m_table; }

private:
    void Name(const std::string& title, const std::string& parent);

    CLineTable m_table;
};

// The controller's refusal of a write ("name: reason") as two panel rows: the reason,
// word-wrapped, the rest cut.
void WrapRefusal(const std::string& message, std::string rows[2]);

// Removes one instance of an object from a values cache (a destroyed table row).
void EraseInstance(Zor::CParam& values, const std::string& object, const std::string& instance);
