#include "Lines/TwoWayLine.h"

#include "Display/Display.h"

namespace {
const int kGap = 3;  // blanks between the two texts
}

CTwoWayLine::CTwoWayLine(const std::string& first, const std::string& second, Qb::uint8 idleHint,
                         Qb::uint8 editHint)
    : m_strEntries{first, second}, m_iCommitted(0), m_iPending(0)
{
    m_uKind = 1;
    m_uIdleHint = idleHint;
    m_uEditHint = editHint;
    m_cursor.SetItemCount(2);
}

bool CTwoWayLine::HandleKey(const KeyPress_t& key)
{
    if (m_bReadOnly)
        return true;
    if (key.key == KEY_LEFT)
        m_cursor.MoveUp();
    else if (key.key == KEY_RIGHT)
        m_cursor.MoveDown();
    m_iPending = m_cursor.GetIndex();
    return true;  // the menu style decides when the choice is taken
}

bool CTwoWayLine::SetIndex(int index)
{
    // Deliberate: out of range is not an error here (unlike the list lines).
    if (index < 0 || index > 1)
        return true;
    m_iPending = index;
    m_iCommitted = index;
    m_cursor.SetIndex(index);
    return true;
}

bool CTwoWayLine::SetValue(const char* value)
{
    std::string text = value != nullptr ? value : "";
    for (int i = 0; i < 2; ++i)
        if (m_strEntries[i] == text)
            return SetIndex(i);
    return false;
}

void CTwoWayLine::Draw(int row)
{
    DrawLayout(row, std::string(), false);
    if (m_pDisplay == nullptr)
        return;
    int column = ValueColumn();
    for (int i = 0; i < 2; ++i) {
        if (i == m_iPending)
            m_pDisplay->QueueHighlight(m_strEntries[i], row, column);
        else
            m_pDisplay->WriteAt(m_strEntries[i], row, column);
        column += static_cast<int>(m_strEntries[i].size()) + kGap;
    }
}
