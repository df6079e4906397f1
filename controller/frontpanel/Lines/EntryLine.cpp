#include "Lines/EntryLine.h"

#include "Display/Display.h"

CEntryLine::CEntryLine() : m_editor(m_cursor), m_bRefused(false), m_iDrawnRow(-1)
{
    m_uKind = 1;
    m_uIdleHint = 6;
    m_uEditHint = 7;
}

int CEntryLine::FieldWidth() const
{
    return m_iLineWidth - m_iLabelLength - 2;
}

bool CEntryLine::HandleKey(const KeyPress_t& key)
{
    if (m_bEditing && m_iDrawnRow >= 0)
        HideCursor(m_iDrawnRow);
    if (!m_bEditing) {
        if (key.key == KEY_ENTER) {
            if (!m_bReadOnly)
                m_bEditing = true;
            Template_t edit = EditTemplate();
            m_editor.Start(edit.text, edit.sets, FieldWidth());
        }
        return m_bEditing;
    }
    switch (key.key) {
        case KEY_LEFT:
            m_editor.MoveLeft();
            break;
        case KEY_RIGHT:
            m_editor.MoveRight();
            break;
        case KEY_UP:
            m_editor.Step(true);
            break;
        case KEY_DOWN:
            m_editor.Step(false);
            break;
        case KEY_EXIT:
            m_bEditing = false;
            break;
        case KEY_ENTER:
            Commit();
            break;
        default:
            break;
    }
    return m_bEditing;
}

void CEntryLine::Commit()
{
    m_bEditing = false;
    m_bRefused = !Accept(m_editor.Text());
    if (!m_bRefused && !m_bReadOnly && m_bBound)
        WriteObject(GetValue());
}

void CEntryLine::Draw(int row)
{
    m_iDrawnRow = m_bEditing ? row : -1;
    m_cursor.SetRow(row);
    if (!m_bEditing) {
        DrawLayout(row, DisplayText(), false);
        return;
    }
    DrawLayout(row, m_editor.Visible(), false);
    ShowCursor(row);
}

void CEntryLine::ShowCursor(int row)
{
    m_cursor.SetRow(row);
    if (!m_bEditing || m_pDisplay == nullptr || m_editor.Text().empty())
        return;
    m_pDisplay->QueueHighlightChar(m_editor.Text()[static_cast<size_t>(m_editor.Index())], row,
                                   ValueColumn() + m_editor.Column());
}

void CEntryLine::HideCursor(int row)
{
    m_cursor.SetRow(row);
    if (!m_bEditing || m_pDisplay == nullptr || m_editor.Text().empty())
        return;
    const char text[2] = {m_editor.Text()[static_cast<size_t>(m_editor.Index())], '\0'};
    m_pDisplay->PutChar(text, row, ValueColumn() + m_editor.Column());
}
