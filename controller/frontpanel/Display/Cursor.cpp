#include "Display/Cursor.h"

#include "Display/Display.h"

using Qb::int32;

CCursor::CCursor()
    : m_pDisplay(nullptr),
      m_iIndex(0),
      m_iLastIndex(-1),
      m_iTop(0),
      m_iRow(1),
      m_iFirstRow(1),
      m_iLastRow(0),
      m_iColumn(0),
      m_iPreviousRow(1),
      m_cGlyph('>'),
      m_iMode(0),
      m_bFixedColumn(false),
      m_iAlternativeColumn(0)
{
}

void CCursor::SetFixedColumn(bool fixed, int32 column)
{
    m_bFixedColumn = fixed;
    m_iAlternativeColumn = column;
}

void CCursor::SetRowRange(int32 first, int32 last)
{
    m_iFirstRow = first;
    m_iLastRow = last;
    m_iRow = first;
    m_iPreviousRow = first;
    m_iIndex = 0;
    m_iTop = 0;
}

void CCursor::SetItemCount(int32 count)
{
    m_iLastIndex = count - 1;
    if (m_iLastIndex < m_iIndex) {
        m_iIndex = 0;
        m_iRow = m_iFirstRow;
        m_iTop = 0;
    } else {
        m_iTop = m_iIndex - (m_iRow - m_iFirstRow);
    }
}

void CCursor::SetIndex(int32 index)
{
    m_iIndex = index;
    if (index == m_iTop) {
        // Near the end of the list the cursor steps back one item, so the area stays full.
        if (index >= 1 && m_iLastIndex - index < m_iLastRow - m_iFirstRow) {
            m_iIndex = index - 1;
            m_iTop = index - 1;
        }
        return;
    }
    m_iRow = m_iFirstRow;
    if (index < 1) {
        m_iTop = index;
        return;
    }
    m_iRow = m_iFirstRow + index;
    if (m_iRow > m_iLastRow) {
        m_iRow = m_iLastRow;
    }
    m_iTop = index - (m_iRow - m_iFirstRow);
}

int32 CCursor::GetVisibleCount() const
{
    const int32 rows = m_iLastRow - m_iFirstRow;
    return m_iLastIndex < rows ? m_iLastIndex + 1 : rows + 1;
}

void CCursor::Draw()
{
    if (!Drawing() || m_pDisplay == nullptr) {
        return;
    }
    if (m_bFixedColumn) {
        m_pDisplay->PutChar(&m_cGlyph, m_iRow, m_iAlternativeColumn);
        return;
    }
    m_pDisplay->PutChar(&m_cGlyph, m_iRow, m_iColumn);
    if (m_iPreviousRow != m_iRow) {
        m_pDisplay->PutChar(" ", m_iPreviousRow, m_iColumn);
    }
    m_iPreviousRow = m_iRow;
}

void CCursor::Erase()
{
    if (Drawing() && m_pDisplay != nullptr) {
        m_pDisplay->PutChar(" ", m_iRow, m_iColumn);
    }
}

bool CCursor::MoveUp()
{
    if (m_iMode == MODE_SCROLL) {
        if (m_iTop < 1) {
            return false;
        }
        --m_iTop;
        return true;
    }
    if (m_iLastIndex < 0) {
        return false;  // an empty list has nothing to select
    }
    const int32 top = m_iTop;
    if (m_iIndex <= 0) {
        m_iIndex = m_iLastIndex;
        m_iRow = m_iLastIndex > m_iLastRow - m_iFirstRow ? m_iLastRow : m_iFirstRow + m_iLastIndex;
    } else {
        --m_iIndex;
        if (m_iRow > m_iFirstRow) {
            --m_iRow;
        }
    }
    m_iTop = m_iIndex - (m_iRow - m_iFirstRow);
    return m_iTop != top;
}

bool CCursor::MoveDown()
{
    if (m_iMode == MODE_SCROLL) {
        if (m_iLastIndex - m_iTop < GetVisibleCount()) {
            return false;
        }
        ++m_iTop;
        return true;
    }
    if (m_iLastIndex < 0) {
        return false;
    }
    const int32 top = m_iTop;
    if (m_iIndex >= m_iLastIndex) {
        m_iIndex = 0;
        m_iRow = m_iFirstRow;
    } else {
        ++m_iIndex;
        if (m_iRow < m_iLastRow) {
            ++m_iRow;
        }
    }
    m_iTop = m_iIndex - (m_iRow - m_iFirstRow);
    return m_iTop != top;
}

void CCursor::Reset()
{
    m_iIndex = 0;
    m_iRow = m_iFirstRow;
    m_iPreviousRow = m_iFirstRow;
    m_iTop = 0;
}
