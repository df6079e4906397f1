#include "Lines/SelectLine.h"

#include "Display/Display.h"
#include "Qb/Str.h"

CSelectLine::CSelectLine()
    : m_glyphs{133, 132}, m_iGlyphCount(2), m_iConfirmed(0), m_iPending(0), m_iLastConfirmed(0)
{
    m_uKind = 1;
    m_uIdleHint = 6;
    m_uEditHint = 6;
    m_cursor.SetItemCount(2);
}

bool CSelectLine::HandleKey(const KeyPress_t& key)
{
    switch (key.key) {
        case KEY_UP:
            // Deliberate: UP raises the index here while UP moves a menu's selection up.
            m_cursor.MoveDown();
            m_iPending = m_cursor.GetIndex();
            return m_bEditing;
        case KEY_DOWN:
            m_cursor.MoveUp();
            m_iPending = m_cursor.GetIndex();
            return m_bEditing;
        case KEY_EXIT:
            if (m_bReadOnly)
                return m_bEditing;
            m_bEditing = false;
            m_cursor.SetIndex(m_iConfirmed);
            m_iPending = m_iConfirmed;
            m_iLastConfirmed = m_iConfirmed;
            return false;
        case KEY_ENTER:
            if (m_bReadOnly)
                return m_bEditing;
            if (m_bEditing) {
                m_iConfirmed = m_iPending;
                m_bEditing = false;
                m_iLastConfirmed = m_iConfirmed;
                return false;
            }
            m_bEditing = true;
            m_iPending = m_iConfirmed;
            m_iLastConfirmed = m_iConfirmed;
            return true;
        default:
            return m_bEditing;
    }
}

bool CSelectLine::SetIndex(int index)
{
    if (index < 0 || index >= m_iGlyphCount)
        return false;
    m_iConfirmed = index;
    m_cursor.SetIndex(index);
    m_iPending = index;
    return true;
}

std::string CSelectLine::GetValue()
{
    int index = m_bEditing ? m_iPending : m_iConfirmed;
    if (index < 0 || index >= m_iGlyphCount)
        return std::string();
        // Kept in two steps on purpose: "%0%X" formats to the plain pattern "%X", which then
        // formats the glyph code.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat"
    std::string pattern = Qb::Str::Format("%0%X");
#pragma GCC diagnostic pop
    return "0x" +
           Qb::Str::Format(pattern.c_str(), static_cast<unsigned>(m_glyphs[static_cast<size_t>(index)]));
}

void CSelectLine::Draw(int row)
{
    if (m_pDisplay == nullptr)
        return;
    DrawLabel(row);
    const int column = ValueColumn();
    char glyph = '-';
    if (!m_glyphs.empty()) {
        int index = m_bEditing ? m_iPending : m_iConfirmed;
        glyph = static_cast<char>(m_glyphs[static_cast<size_t>(index)]);
    }
    if (m_bEditing) {
        m_pDisplay->QueueHighlightChar(glyph, row, column);
    } else {
        char text[2] = {glyph, '\0'};
        m_pDisplay->PutChar(text, row, column);
    }
    DrawTail(row, column + 1);
}
