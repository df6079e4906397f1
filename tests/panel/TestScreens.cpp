#include "TestScreens.h"

#include "ScreenManager/MenuStyle.h"

namespace PanelTest {

CTextLine::CTextLine(const std::string& value) : m_strValue(value), m_iDraws(0)
{
    m_uKind = 1;
    m_uIdleHint = 6;
    m_uEditHint = 7;
}

bool CTextLine::HandleKey(const KeyPress_t& key)
{
    switch (key.key) {
        case KEY_ENTER:
        case KEY_EXIT:
            if (m_bReadOnly)
                return m_bEditing;
            m_bEditing = key.key == KEY_ENTER ? !m_bEditing : false;
            return m_bEditing;
        case KEY_LEFT:
        case KEY_RIGHT:
            if (m_bEditing)
                m_strValue += key.key == KEY_LEFT ? '<' : '>';
            return m_bEditing;
        default:
            return m_bEditing;
    }
}

bool CTextLine::SetValue(const char* value)
{
    m_strValue = value != nullptr ? value : "";
    return true;
}

CTableScreen::CTableScreen(const std::string& title, const std::string& parent,
                           const std::vector<Row_t>& rows, const std::string& style)
    : CScreen(style), m_iEnters(0), m_iLeaves(0)
{
    m_pMenu->SetTitle(title);
    m_pMenu->SetParentScreen(parent);
    for (const Row_t& row : rows) {
        CGenericLine* pLine = row.pLine != nullptr ? row.pLine : new CTextLine();
        pLine->SetSelectable(row.selectable);
        m_pMenu->AppendLine(pLine, row.label.c_str(), row.target);
    }
}

void CTableScreen::Enter()
{
    ++m_iEnters;
    CScreen::Enter();
}

void CTableScreen::Leave()
{
    ++m_iLeaves;
    CScreen::Leave();
}

std::vector<Row_t> MenuRows(const std::vector<std::pair<std::string, std::string>>& entries)
{
    std::vector<Row_t> rows;
    for (const auto& entry : entries)
        rows.push_back(Row_t{entry.first, entry.second, true, nullptr});
    return rows;
}

}  // namespace PanelTest
