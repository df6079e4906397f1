#include "ScreenManager/MenuStyleYesNo.h"

#include "Display/Display.h"
#include "Lines/GenericLine.h"

CMenuStyleYesNo::CMenuStyleYesNo() {}

CMenuStyleYesNo::~CMenuStyleYesNo() {}

void CMenuStyleYesNo::Redraw(int mode)
{
    CMenuStyleBasic::Redraw(mode);
}

void CMenuStyleYesNo::Clear(int a, int b)
{
    CMenuStyleBasic::Clear(a, b);
}

void CMenuStyleYesNo::SetLineLabel(const char* text, int position)
{
    CMenuStyleBasic::SetLineLabel(text, position);
}

void CMenuStyleYesNo::SetDisplay(CDisplay* pDisplay)
{
    CMenuStyleBasic::SetDisplay(pDisplay);
}

void CMenuStyleYesNo::DrawMarker()
{
    if (HasSelectionMarker())
        m_selection.Erase();
}

std::string CMenuStyleYesNo::HandleKey(const KeyPress_t& key)
{
    m_strNextScreen = "No Screen";
    CGenericLine* pLine = GetSelectedLine();
    if (pLine != nullptr)
        pLine->HandleKey(key);
    if (key.key == KEY_EXIT)
        return m_strParent;
    RedrawSelected(false);
    if (m_pDisplay != nullptr)
        m_pDisplay->UpdateLine(SelectedRow());
    if (key.key == KEY_ENTER) {
        m_bEditing = false;
        ShowHints(pLine != nullptr ? pLine->GetIdleHint() : 0);
        Redraw(0);
    }
    return "No Screen";
}
