// The basic list with two-row list lines: a list line's second row is a dummy line, and a
// list line cut by the top of the area is drawn from its first row.
#pragma once

#include "ScreenManager/MenuStyleBasic.h"

class CMenuStyleLongList : public CMenuStyleBasic {
public:
    CMenuStyleLongList();
    ~CMenuStyleLongList() override;

    void Redraw(int mode) override;
    std::string HandleKey(const KeyPress_t& key) override;
    void Clear(int a, int b) override;
    void SetLineLabel(const char* text, int position) override;
    void SetDisplay(CDisplay* pDisplay) override;

protected:
    enum { KIND_LONG_LIST = 2 };

    void RedrawSelected(bool showMarker) override;
    void DrawLines() override;
    int DownRedrawMode() override { return m_bRedrawAllOnDown ? 1 : 0; }
    bool EnterNeedsSelection() override { return false; }
    bool UpdatesRowAfterEditKey() override { return false; }

private:
    // Draws a line with the long-list flags set for its place in the area.
    void DrawListLine(CGenericLine* pLine, int listRow, bool refresh);
};
