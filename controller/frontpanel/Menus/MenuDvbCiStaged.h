// The base of the CAM configuration screens that collect several changes and put them in
// force together ("Apply"): the selected services or PIDs of one slot, read from the
// controller on entry and then kept here until they are applied or dropped. Nothing is
// written before "Apply" or a "Yes" to the save question that leaving with unapplied
// changes always asks (CMenuDvbCiSaveChanges).
#pragma once

#include <string>
#include <vector>

#include "ScreenManager/TavEventScreen.h"
#include "Zor/Param.h"

class CGenericLine;

class CMenuDvbCiStaged : public CTavEventScreen {
public:
    // `table`: "camselectedservice" or "camselectedpid"; `instance`: the slot (".1").
    CMenuDvbCiStaged(const std::string& title, const std::string& parent, const std::string& table,
                     const std::string& instance, const std::string& style);

    void Enter() override;
    std::string HandleKey(const KeyPress_t& key) override;

    // True while changes wait to be applied.
    bool HasChanges() const { return m_bChanged; }
    // Shows "Saving Changes..." and writes every change in one transaction (rows that go are
    // destroyed, new ones created with their columns). True when the controller took it.
    bool Save();
    // Drops the changes; nothing is written.
    void Discard();

protected:
    // One selected service or PID: `row` is the controller's row (".1.2"), empty for one
    // added here; `program` the program number (65535: no associated service).
    struct Selection_t {
        std::string row;
        std::string program;
        std::string pid;
        bool present;
    };

    // Appends the screen's lines for the current selections (AddSelection, AddApply, own).
    virtual void MakeLines() = 0;
    // A line of the screen's own was used with ENTER (after the key reached it).
    virtual void OnOwnLine(CGenericLine* pLine, bool wasEditing) = 0;

    // A line for selection `index` (ENTER takes it out); `label` is its text.
    void AddSelection(int index, const std::string& label);
    void AddApply();
    void AddOwn(CGenericLine* pLine, const char* label);
    // A new selection, unless the same one is already there (false then).
    bool Select(const std::string& program, const std::string& pid);
    // Takes selection `index` out (a controller row is destroyed on saving).
    void Unselect(int index);
    // Lines made again from the selections, the selection kept on the same place.
    void Remake();
    // Shows a two-row message for a moment (the key thread waits).
    void Message(const std::string& line1, const std::string& line2);

    // Values read on entry: name -> instance -> value (the selections' table, the service
    // information).
    Zor::CParam m_read;
    std::vector<Selection_t> m_selections;
    std::string m_strSlot;
    std::string m_strTable;

private:
    enum Use_e { USE_SELECTION, USE_APPLY, USE_OWN };
    struct Line_t {
        CGenericLine* pLine;
        Use_e use;
        int index;
    };
    void Load();
    void Add(CGenericLine* pLine, const char* label, Use_e use, int index);

    std::vector<Line_t> m_lines;
    std::vector<std::string> m_removed;  // controller rows to destroy
    bool m_bChanged;
};
