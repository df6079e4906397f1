// The lines of one screen, by slot, with the subset currently shown and, per line, the
// screen that ENTER on it opens. Owns its lines.
#pragma once

#include <string>
#include <vector>

class CDisplay;
class CGenericLine;
class CTavClient;

class CLineContainer {
public:
    CLineContainer();
    virtual ~CLineContainer();

    // Creates the next slot (numbered from 0 in creation order), shown, with the screen that
    // ENTER on its line opens (empty: the line does not navigate). Returns its index.
    int AddSlot(const std::string& target = std::string());
    // Deletes every line and removes every slot.
    void Clear();

    // Places the line in an existing slot, deleting the slot's earlier line. False (and the
    // caller keeps the line) when the slot does not exist.
    bool SetLine(CGenericLine* pLine, unsigned index);
    // The line at a position among the shown lines; null when out of range.
    CGenericLine* GetLine(int position) const;
    int GetCount() const { return static_cast<int>(m_shown.size()); }
    int GetSlotCount() const { return static_cast<int>(m_all.size()); }
    int FindIndex(const CGenericLine* pLine) const;
    int FindPosition(const CGenericLine* pLine) const;
    bool ShowLine(int index);
    bool HideLine(int index);
    // "No Screen" when the position is out of range or the line does not navigate.
    std::string GetTarget(int position) const;
    bool RemoveSlot(int index);

    void SetDisplay(CDisplay* pDisplay) { m_pDisplay = pDisplay; }
    void SetClient(CTavClient* pClient) { m_pClient = pClient; }

private:
    CLineContainer(const CLineContainer&) = delete;
    CLineContainer& operator=(const CLineContainer&) = delete;

    struct Entry {
        CGenericLine* pLine;
        std::string strTarget;
        int iIndex;
    };

    std::vector<int> m_shown;  // slot indices, ascending
    std::vector<Entry> m_all;  // by slot index; owns the lines
    CTavClient* m_pClient;
    CDisplay* m_pDisplay;
};
