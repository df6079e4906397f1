#include "Lines/GenericScrollLine.h"

#include "Display/Display.h"

CGenericScrollLine::CGenericScrollLine(const std::string& text) : m_iOffset(0), m_bSlid(false)
{
    m_uKind = 1;
    m_uIdleHint = 3;
    m_uEditHint = 0;
    m_bTakesKeysWhileIdle = true;
    SetValue(text);
}

bool CGenericScrollLine::SetValue(const char* value)
{
    std::string text = value != nullptr ? value : "";
    CDisplay::ReplaceUnsupportedChars(text);
    // A redraw reads bound values again: only a new text starts over.
    if (text != m_strText)
        m_iOffset = 0;
    m_strText = text;
    return true;
}

int CGenericScrollLine::LastOffset() const
{
    int room = m_iLineWidth - ValueColumn() - (m_bHasSuffix ? m_iSuffixLength : 0);
    int excess = static_cast<int>(m_strText.size()) - (room > 0 ? room : 0);
    return excess > 0 ? excess : 0;
}

bool CGenericScrollLine::HandleKey(const KeyPress_t& key)
{
    int before = m_iOffset;
    switch (key.key) {
        case KEY_RIGHT:
            m_iOffset = m_iOffset + SCROLL_STEP < LastOffset() ? m_iOffset + SCROLL_STEP : LastOffset();
            break;
        case KEY_LEFT:
            m_iOffset = m_iOffset > SCROLL_STEP ? m_iOffset - SCROLL_STEP : 0;
            break;
        case KEY_UP:
        case KEY_DOWN:
            m_iOffset = 0;  // the selection leaves the row
            break;
        default:
            break;
    }
    m_bSlid = m_bSlid || m_iOffset != before;
    return false;
}

void CGenericScrollLine::Draw(int row)
{
    // After a key on a row that is not being edited the menu style sends nothing, so a
    // slide is sent from here, with the selection marker the style keeps in column 0.
    const CDisplayWindow* pWindow = m_pDisplay != nullptr ? m_pDisplay->GetCurrentWindow() : nullptr;
    bool send = m_bSlid && pWindow != nullptr && row >= 0 && row < pWindow->GetRows();
    char marker = send && m_iLabelColumn > 0 ? pWindow->GetLine(row)[0] : ' ';
    m_bSlid = false;

    int offset = m_iOffset < static_cast<int>(m_strText.size()) ? m_iOffset : 0;
    DrawLayout(row, m_strText.substr(static_cast<size_t>(offset)), false);
    if (!send)
        return;
    const char text[2] = {marker, '\0'};
    m_pDisplay->PutChar(text, row, 0);
    m_pDisplay->UpdateLine(row);
}
