#include "Lines/GenericLongList.h"

#include "Display/Display.h"
#include "Lines/GenericDummyLine.h"

namespace {
const int kEntryIndent = 2;  // the entry row starts this far right of the label
}

CGenericLongList::CGenericLongList() : m_pDummy(new CGenericDummyLine())
{
    m_uKind = 2;
    m_bHasCompanion = true;  // shown and hidden together with the spacer
    m_pDummy->SetSelectable(false);
}

CGenericLongList::~CGenericLongList()
{
    delete m_pDummy;
}

CGenericDummyLine* CGenericLongList::TakeDummyLine()
{
    CGenericDummyLine* pDummy = m_pDummy;
    m_pDummy = nullptr;
    return pDummy;
}

void CGenericLongList::Draw(int row)
{
    if (m_pDisplay == nullptr)
        return;
    if (m_bFlag2) {
        DrawEntryRow(row);
        return;
    }
    if (!m_bFlag0) {
        CGenericList::Draw(row);
        return;
    }
    m_pDisplay->ClearLine(row);
    std::string lead(static_cast<size_t>(m_iLabelColumn > 0 ? m_iLabelColumn : 0), ' ');
    if (m_bHasLabel)
        lead += m_strLabel;
    if (static_cast<int>(lead.size()) < m_iLineWidth)
        lead.resize(static_cast<size_t>(m_iLineWidth), ' ');
    m_pDisplay->WriteAt(lead, row, 0);
    DrawEntryRow(row + 1);
    // While editing the style sends only the first row; the entry row has changed too.
    if (m_bEditing)
        m_pDisplay->UpdateLine(row + 1);
}

void CGenericLongList::DrawEntryRow(int row)
{
    m_pDisplay->ClearLine(row);
    int column = m_iLabelColumn + kEntryIndent;
    std::string text = GetText();
    if (m_bEditing && !text.empty())
        m_pDisplay->QueueHighlight(text, row, column);
    else
        m_pDisplay->WriteAt(text, row, column);
    column += static_cast<int>(text.size());
    if (m_bHasSuffix) {
        m_pDisplay->WriteAt(m_strSuffix, row, column);
        column += m_iSuffixLength;
    }
    if (column < m_iLineWidth)
        m_pDisplay->WriteAt(std::string(static_cast<size_t>(m_iLineWidth - column), ' '), row, column);
}
