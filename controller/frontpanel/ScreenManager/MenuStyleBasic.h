// The ordinary menu and settings list: UP/DOWN move the selection (wrapping), ENTER opens
// the selected line's screen or edits the line, EXIT goes to the parent screen.
#pragma once

#include "ScreenManager/MenuStyle.h"

class CMenuStyleBasic : public CMenuStyle {
public:
    CMenuStyleBasic();
    ~CMenuStyleBasic() override;

    void Redraw(int mode) override;
    std::string HandleKey(const KeyPress_t& key) override;
    void Clear(int a, int b) override;
    void SetLineLabel(const char* text, int position) override;
    void SetDisplay(CDisplay* pDisplay) override;

protected:
    // Draws the selected line on its row while it is being edited; the long-list style draws
    // it its own way.
    virtual void RedrawSelected(bool showMarker);
    // Draws the visible lines below the title.
    virtual void DrawLines();
    // The selection marker after a full redraw (the yes/no style erases it instead).
    virtual void DrawMarker();
    // How the screen is redrawn after DOWN (0 lines only, 1 with the title).
    virtual int DownRedrawMode() { return 0; }
    // Whether ENTER is ignored while the selection cursor shows no selection.
    virtual bool EnterNeedsSelection() { return true; }
    // Whether the row is sent after a key that keeps the line in edit mode.
    virtual bool UpdatesRowAfterEditKey() { return true; }
    // Steps over one non-selectable line after a move, on purpose only one.
    void SkipUnselectable(bool up);
    // Leaves the selection on a selectable line, giving up when it wraps back to 0.
    void SettleSelection();
    std::string HandleEditingKey(const KeyPress_t& key);
};
