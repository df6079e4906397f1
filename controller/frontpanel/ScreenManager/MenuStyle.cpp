#include "ScreenManager/MenuStyle.h"

#include "Display/Display.h"
#include "Lines/GenericLine.h"

namespace {
const int kFirstListRow = 1;
const int kLastListRow = 4;
}  // namespace

CMenuStyle::CMenuStyle()
    : m_strNextScreen("No Screen"),
      m_bFirstByte(false),
      m_bRedrawAllOnDown(false),
      m_strParent("No Screen"),
      m_bEditing(false),
      m_pDisplay(nullptr),
      m_pClient(nullptr),
      m_uWord1(0),
      m_uWord2(0),
      m_bLockIndicator(false),
      m_bDisabledIndicator(false)
{
    m_selection.SetRowRange(kFirstListRow, kLastListRow);
    m_selection.SetItemCount(0);
    m_selection.SetGlyph('>');
}

CMenuStyle::~CMenuStyle() {}

void CMenuStyle::Redraw(int) {}

std::string CMenuStyle::HandleKey(const KeyPress_t&)
{
    return "No Screen";
}

void CMenuStyle::Clear(int, int)
{
    // The display's Clear takes no arguments; the two are accepted and dropped.
    if (m_pDisplay != nullptr)
        m_pDisplay->Clear();
}

std::string CMenuStyle::HandleKeyCode(int code)
{
    KeyPress_t key = {code, 0};
    return HandleKey(key);
}

void CMenuStyle::SetLineLabel(const char*, int) {}

void CMenuStyle::SetDisplay(CDisplay* pDisplay)
{
    m_pDisplay = pDisplay;
    m_selection.SetDisplay(pDisplay);
    m_lines.SetDisplay(pDisplay);
}

void CMenuStyle::SetClient(CTavClient* pClient)
{
    m_pClient = pClient;
    m_lines.SetClient(pClient);
}

bool CMenuStyle::AddLine(CGenericLine* pLine, unsigned index, const char* label)
{
    if (pLine == nullptr)
        return false;
    pLine->SetClient(m_pClient);
    pLine->SetDisplay(m_pDisplay);
    if (label != nullptr && *label != '\0')
        pLine->SetLabel(label);
    bool placed = m_lines.SetLine(pLine, index);
    m_selection.SetItemCount(m_lines.GetCount());
    return placed;
}

bool CMenuStyle::AppendLine(CGenericLine* pLine, const char* label, const std::string& target)
{
    if (pLine == nullptr)
        return false;
    int index = m_lines.AddSlot(target);
    if (!AddLine(pLine, static_cast<unsigned>(index), label)) {
        m_lines.RemoveSlot(index);
        m_selection.SetItemCount(m_lines.GetCount());
        return false;
    }
    return true;
}

void CMenuStyle::SetLineHidden(CGenericLine* pLine, bool hide)
{
    int index = m_lines.FindIndex(pLine);
    if (index < 0)
        return;
    int last = pLine->HasCompanion() ? index + 1 : index;
    for (int i = index; i <= last; ++i) {
        if (hide)
            m_lines.HideLine(i);
        else
            m_lines.ShowLine(i);
        m_selection.SetItemCount(m_lines.GetCount());
    }
}

void CMenuStyle::HideLineOf(CGenericLine* pLine)
{
    SetLineHidden(pLine, true);
}

std::string CMenuStyle::GetLineValue(int position)
{
    CGenericLine* pLine = m_lines.GetLine(position);
    return pLine != nullptr ? pLine->GetValue() : std::string();
}

void CMenuStyle::SetEditing(bool on)
{
    if (m_bEditing == on)
        return;
    HandleKeyCode(KEY_ENTER);
}

CGenericLine* CMenuStyle::GetSelectedLine() const
{
    return m_lines.GetLine(m_selection.GetIndex());
}

void CMenuStyle::DrawLine(CGenericLine* pLine, int row)
{
    if (pLine == nullptr)
        return;
    pLine->SetClient(m_pClient);
    pLine->SetDisplay(m_pDisplay);
    pLine->Draw(row);
}

void CMenuStyle::ShowHints(Qb::uint8 mask)
{
    if (m_pDisplay == nullptr)
        return;
    bool hadLeft = m_pDisplay->GetLeftIndicator8() || m_pDisplay->GetLeftIndicator16();
    m_pDisplay->SetLeftIndicator8(m_bLockIndicator);
    m_pDisplay->SetLeftIndicator16(m_bDisabledIndicator);
    // The display redraws a wanted left indicator itself; one that is no longer wanted
    // must be blanked here, since a lines-only redraw does not clear the title row.
    if (hadLeft && !m_bLockIndicator && !m_bDisabledIndicator)
        m_pDisplay->SetLeftIndicators(0);
    m_pDisplay->SetRightIndicators(mask);
}

void CMenuStyle::DrawTitle(int mode)
{
    if (mode != 1 && mode != 2)
        return;
    m_pDisplay->Clear();
    if (mode == 2)
        m_pDisplay->ClearScreen();
    std::string title = m_strTitle;  // aligned in place
    m_pDisplay->WriteAligned(title, 0, 1, 0);
}

bool CMenuStyle::SelectLine(const CGenericLine* pLine)
{
    int position = m_lines.FindPosition(pLine);
    if (position < 0)
        return false;
    m_selection.Reset();
    for (int i = 0; i < position; ++i)
        m_selection.MoveDown();
    return true;
}
