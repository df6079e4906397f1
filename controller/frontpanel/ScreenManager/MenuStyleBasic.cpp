#include "ScreenManager/MenuStyleBasic.h"

#include "Display/Display.h"
#include "Lines/GenericLine.h"

CMenuStyleBasic::CMenuStyleBasic() {}

CMenuStyleBasic::~CMenuStyleBasic() {}

void CMenuStyleBasic::Clear(int a, int b)
{
    CMenuStyle::Clear(a, b);
}

void CMenuStyleBasic::SetLineLabel(const char* text, int position)
{
    CGenericLine* pLine = m_lines.GetLine(position);
    if (pLine != nullptr)
        pLine->SetLabel(text);
}

void CMenuStyleBasic::SetDisplay(CDisplay* pDisplay)
{
    // The lines get the display again at every redraw.
    m_pDisplay = pDisplay;
    m_selection.SetDisplay(pDisplay);
}

void CMenuStyleBasic::RedrawSelected(bool showMarker)
{
    CGenericLine* pLine = GetSelectedLine();
    if (pLine == nullptr)
        return;
    int row = SelectedRow();
    DrawLine(pLine, row);
    if (!HasSelectionMarker())
        return;
    if (showMarker)
        m_selection.Draw();
    else
        m_selection.Erase();
}

std::string CMenuStyleBasic::HandleEditingKey(const KeyPress_t& key)
{
    CGenericLine* pLine = GetSelectedLine();
    if (pLine != nullptr)
        pLine->HandleKey(key);  // the line tracks its own edit state
    if (key.key != KEY_EXIT && key.key != KEY_ENTER) {
        RedrawSelected(false);
        if (m_pDisplay != nullptr && UpdatesRowAfterEditKey())
            m_pDisplay->UpdateLine(SelectedRow());
        return "No Screen";
    }
    m_bEditing = false;
    RedrawSelected(true);
    ShowHints(pLine != nullptr ? pLine->GetIdleHint() : 0);
    Redraw(0);
    return "No Screen";
}

void CMenuStyleBasic::SkipUnselectable(bool up)
{
    CGenericLine* pLine = GetSelectedLine();
    if (pLine == nullptr || pLine->IsSelectable())
        return;
    if (up)
        m_selection.MoveUp();
    else
        m_selection.MoveDown();
}

std::string CMenuStyleBasic::HandleKey(const KeyPress_t& key)
{
    m_strNextScreen = "No Screen";
    if (m_bEditing)
        return HandleEditingKey(key);

    CGenericLine* pLine = GetSelectedLine();
    if (pLine != nullptr && pLine->TakesKeysWhileIdle()) {
        pLine->HandleKey(key);
        RedrawSelected(true);
    }

    switch (key.key) {
        case KEY_UP:
        case KEY_DOWN:
            if (HasSelectionMarker() && m_lines.GetCount() > 0) {
                bool up = key.key == KEY_UP;
                if (up)
                    m_selection.MoveUp();
                else
                    m_selection.MoveDown();
                SkipUnselectable(up);
            }
            Redraw(key.key == KEY_DOWN ? DownRedrawMode() : 0);
            return "No Screen";
        case KEY_EXIT:
            return m_strParent;
        case KEY_ENTER:
            if (HasSelectionMarker() || !EnterNeedsSelection()) {
                m_strNextScreen = m_lines.GetTarget(m_selection.GetIndex());
                if (m_strNextScreen != "No Screen")
                    return m_strNextScreen;
                // A line disabled by the panel lock is shown but never edited.
                if (pLine != nullptr && pLine->IsEnabled())
                    m_bEditing = pLine->HandleKey(key);
                Redraw(0);
            }
            return "No Screen";
        default:
            return "No Screen";
    }
}

void CMenuStyleBasic::SettleSelection()
{
    for (int guard = m_lines.GetCount(); guard > 0; --guard) {
        CGenericLine* pLine = GetSelectedLine();
        if (pLine == nullptr || pLine->IsSelectable())
            return;
        m_selection.MoveDown();
        if (m_selection.GetIndex() == 0)
            return;
    }
}

void CMenuStyleBasic::DrawLines()
{
    int visible = m_selection.GetVisibleCount();
    int top = m_selection.GetTop();
    for (int i = 0; i < visible; ++i) {
        CGenericLine* pLine = m_lines.GetLine(top + i);
        if (pLine == nullptr)
            continue;
        pLine->SetClient(m_pClient);
        pLine->SetDisplay(m_pDisplay);
        pLine->RefreshValue();  // bound lines show the controller's current value
        pLine->Draw(m_selection.GetFirstRow() + i);
    }
}

void CMenuStyleBasic::DrawMarker()
{
    if (HasSelectionMarker())
        m_selection.Draw();
}

void CMenuStyleBasic::Redraw(int mode)
{
    if (m_pDisplay == nullptr)
        return;
    CGenericLine* pSelected = GetSelectedLine();
    if (m_bEditing && pSelected != nullptr) {
        RedrawSelected(false);
        m_pDisplay->UpdateLine(SelectedRow());
        ShowHints(pSelected->GetEditHint());
        return;
    }
    SettleSelection();
    DrawTitle(mode);
    if (m_lines.GetCount() > 0)
        DrawLines();
    DrawMarker();
    m_pDisplay->RedrawWindow();
    pSelected = GetSelectedLine();
    ShowHints(pSelected != nullptr ? pSelected->GetIdleHint() : 0);
}
