#include "ScreenManager/MenuStyleLongList.h"

#include "Display/Display.h"
#include "Lines/GenericLine.h"

CMenuStyleLongList::CMenuStyleLongList() {}

CMenuStyleLongList::~CMenuStyleLongList() {}

void CMenuStyleLongList::Redraw(int mode)
{
    CMenuStyleBasic::Redraw(mode);
}

std::string CMenuStyleLongList::HandleKey(const KeyPress_t& key)
{
    return CMenuStyleBasic::HandleKey(key);
}

void CMenuStyleLongList::Clear(int a, int b)
{
    CMenuStyleBasic::Clear(a, b);
}

void CMenuStyleLongList::SetLineLabel(const char* text, int position)
{
    CMenuStyleBasic::SetLineLabel(text, position);
}

void CMenuStyleLongList::SetDisplay(CDisplay* pDisplay)
{
    CMenuStyleBasic::SetDisplay(pDisplay);
}

void CMenuStyleLongList::DrawListLine(CGenericLine* pLine, int listRow, bool refresh)
{
    pLine->SetClient(m_pClient);
    pLine->SetDisplay(m_pDisplay);
    if (refresh)
        pLine->RefreshValue();
    if (pLine->GetKind() == KIND_LONG_LIST) {
        // On the last row of the area a list line has no room for its second row.
        pLine->SetFlag2(false);
        pLine->SetFlag0(listRow < 3);
    }
    pLine->Draw(m_selection.GetFirstRow() + listRow);
}

void CMenuStyleLongList::RedrawSelected(bool showMarker)
{
    CGenericLine* pLine = GetSelectedLine();
    if (pLine == nullptr)
        return;
    int listRow = SelectedRow() - m_selection.GetFirstRow();
    DrawListLine(pLine, listRow, false);
    if (HasSelectionMarker()) {
        if (showMarker)
            m_selection.Draw();
        else
            m_selection.Erase();
    }
    if (m_pDisplay != nullptr && !showMarker)
        m_pDisplay->UpdateLine(SelectedRow());
}

void CMenuStyleLongList::DrawLines()
{
    int visible = m_selection.GetVisibleCount();
    int top = m_selection.GetTop();
    for (int i = 0; i < visible; ++i) {
        CGenericLine* pLine = m_lines.GetLine(top + i);
        if (pLine == nullptr)
            continue;
        if (i == 0 && pLine->GetFlag1()) {
            // The top row is the second row of a list line: draw that line from its start.
            CGenericLine* pOwner = m_lines.GetLine(top - 1);
            if (pOwner != nullptr) {
                pOwner->SetClient(m_pClient);
                pOwner->SetDisplay(m_pDisplay);
                pOwner->RefreshValue();
                pOwner->SetFlag2(true);
                pOwner->SetFlag0(true);
                pOwner->Draw(m_selection.GetFirstRow());
            }
            continue;
        }
        DrawListLine(pLine, i, true);
    }
}
