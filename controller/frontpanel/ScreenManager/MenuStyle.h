// Lays a screen out on the display (title on row 0, a scrolling run of lines below) and
// turns keys into selection moves, line edits and the name of the next screen.
#pragma once

#include <string>

#include "Display/Cursor.h"
#include "KeyPad/KeyPress.h"
#include "Lines/LineContainer.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

class CDisplay;
class CGenericLine;
class CTavClient;

class CMenuStyle : private Qb::CUncopyable {
public:
    CMenuStyle();
    virtual ~CMenuStyle();

    virtual void ReservedHook() {}
    // 0: lines only; 1: clear and title first; 2: also clear the panel itself.
    virtual void Redraw(int mode);
    // The name of the next screen, "No Screen" to stay.
    virtual std::string HandleKey(const KeyPress_t& key);
    virtual void Clear(int a, int b);
    std::string HandleKeyCode(int code);
    virtual void SetLineLabel(const char* text, int position);
    virtual void SetDisplay(CDisplay* pDisplay);
    virtual void SetNextScreen(const std::string& name) { m_strNextScreen = name; }
    // The screen that EXIT returns to.
    virtual std::string GetBackName() { return m_strParent; }

    void SetClient(CTavClient* pClient);

    bool AddLine(CGenericLine* pLine, unsigned index, const char* label);
    // Creates a slot with its ENTER target and places the line in it: the usual way to
    // build a screen row by row. Returns false (the caller keeps the line) only on misuse.
    bool AppendLine(CGenericLine* pLine, const char* label, const std::string& target = std::string());
    void SetLineHidden(CGenericLine* pLine, bool hide);
    void HideLineOf(CGenericLine* pLine);
    std::string GetLineValue(int position);
    void SetEditing(bool on);

    bool IsEditing() const { return m_bEditing; }
    void SetTitle(const std::string& title) { m_strTitle = title; }
    const std::string& GetTitle() const { return m_strTitle; }
    // The name text a settings screen hands its style (compared with key answers).
    void SetMenuName(const std::string& name) { m_strMenuName = name; }
    const std::string& GetMenuName() const { return m_strMenuName; }
    void SetParentScreen(const std::string& name) { m_strParent = name; }
    const std::string& GetParentScreen() const { return m_strParent; }
    const std::string& GetNextScreen() const { return m_strNextScreen; }
    void SetRedrawAllOnDown(bool on) { m_bRedrawAllOnDown = on; }
    CLineContainer& GetLines() { return m_lines; }
    CCursor& GetCursor() { return m_selection; }
    // The selected line, null when none is shown.
    CGenericLine* GetSelectedLine() const;
    // Moves the selection to a shown line, as DOWN from the top would; false when it is not
    // shown.
    bool SelectLine(const CGenericLine* pLine);
    // Lock-mode indicators drawn at the left of the title row with the key hints.
    void SetLockIndicator(bool on) { m_bLockIndicator = on; }
    void SetDisabledIndicator(bool on) { m_bDisabledIndicator = on; }
    bool GetLockIndicator() const { return m_bLockIndicator; }
    bool GetDisabledIndicator() const { return m_bDisabledIndicator; }

protected:
    enum { NO_SELECTION = -1 };

    bool HasSelectionMarker() const { return m_selection.GetMode() != NO_SELECTION; }
    // The display row of the selected line (row 0 is the title).
    int SelectedRow() const { return m_selection.GetIndex() - m_selection.GetTop() + 1; }
    // Gives a line the style's client and display and draws it on a row.
    void DrawLine(CGenericLine* pLine, int row);
    // Sends the key hints, with the lock-mode indicators first.
    void ShowHints(Qb::uint8 mask);
    // Clear, the panel itself for mode 2, and the title (modes 1 and 2).
    void DrawTitle(int mode);

    std::string m_strNextScreen;
    CLineContainer m_lines;
    CCursor m_selection;
    bool m_bFirstByte;
    bool m_bRedrawAllOnDown;
    std::string m_strTitle;
    std::string m_strParent;
    std::string m_strMenuName;
    bool m_bEditing;
    CDisplay* m_pDisplay;
    CTavClient* m_pClient;
    Qb::uint32 m_uWord1;
    Qb::uint32 m_uWord2;
    bool m_bLockIndicator;
    bool m_bDisabledIndicator;
};
