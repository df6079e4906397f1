// Screens told by a table of CLineSpec rows (LineSpec.h): the table makes the lines, fills
// the request list, binds editable lines to their objects and turns cached values into
// the texts of shown values. A screen of this kind is its table plus the few handlers that
// are really its own; docs/screens.md shows how to write one.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "ScreenManager/LineSpec.h"
#include "ScreenManager/TavConfigScreen.h"
#include "ScreenManager/TavStatusScreen.h"

class CMenuStyle;
class CGenericLine;

// The rows of one screen and the lines made from them.
class CLineTable {
public:
    CLineTable(std::vector<CLineSpec> specs, bool editable);

    // The instance that kCard stands for (".1.2").
    void SetCard(const std::string& instance) { m_strCard = instance; }
    const std::string& GetCard() const { return m_strCard; }

    // The keys of every row, kEach rows as "name.%" patterns.
    std::vector<std::string> Requests() const;
    // Makes the lines in the style, one per row and one per listed instance of a kEach
    // row. Made again (all of them, in table order) only when the instances of a kEach row
    // changed; false when nothing was made.
    bool Make(CMenuStyle& style, const Zor::CParam& values);
    // Sets the text rows from the cached values; with `all`, also seeds the editable lines.
    void Fill(const Zor::CParam& values, bool all);
    // The panel lock on every line made, hidden ones too; rows declared read-only stay so.
    void ApplyLockMode(bool readOnly);
    // The line made for a row's object and instance; null if none.
    CGenericLine* Find(const std::string& object, const std::string& instance) const;
    int Count() const { return static_cast<int>(m_made.size()); }

private:
    struct Made_t {
        const CLineSpec* pSpec;
        std::string instance;
        CGenericLine* pLine;
    };

    std::string Resolve(const std::string& instance) const;
    std::vector<std::vector<std::string>> EachInstances(const Zor::CParam& values) const;

    std::vector<CLineSpec> m_specs;
    bool m_bEditable;
    std::string m_strCard;
    bool m_bMade;
    std::vector<std::vector<std::string>> m_each;  // instances of each kEach row when made
    std::vector<Made_t> m_made;
};

// A settings page told by its table: every entry reads the values afresh; a change event
// refreshes the text rows from the event and redraws (editable lines read their object at
// every redraw).
class CConfigTableScreen : public CTavConfigScreen {
public:
    CConfigTableScreen(const std::string& title, const std::string& parent, std::vector<CLineSpec> lines,
                       const std::string& style = "Menu Style Basic");
    template <std::size_t N>
    CConfigTableScreen(const std::string& title, const std::string& parent, const CLineSpec (&lines)[N],
                       const std::string& style = "Menu Style Basic")
        : CConfigTableScreen(title, parent, std::vector<CLineSpec>(lines, lines + N), style)
    {
    }

    void BuildLines() override;
    void AfterLoad() override;
    void ApplyLockMode(bool readOnly) override;
    void OnManagedEvent(const std::string& name, const Zor::COid& instance,
                        const Zor::CParam& value) override;

    CLineTable& Table() { return m_table; }

private:
    CLineTable m_table;
};

// A status page told by its table: the rows show cached values as texts, updated from
// each change event.
class CStatusTableScreen : public CTavStatusScreen {
public:
    CStatusTableScreen(const std::string& title, const std::string& parent, std::vector<CLineSpec> lines,
                       const std::string& style = "Menu Style Basic");
    template <std::size_t N>
    CStatusTableScreen(const std::string& title, const std::string& parent, const CLineSpec (&lines)[N],
                       const std::string& style = "Menu Style Basic")
        : CStatusTableScreen(title, parent, std::vector<CLineSpec>(lines, lines + N), style)
    {
    }

    void BuildLines() override;
    void AfterLoad() override;
    void UpdateLines(int mode) override;

    CLineTable& Table() { return m_table; }

private:
    CLineTable m_table;
};
