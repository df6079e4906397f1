#include "Lines/EditRemoveIpLine.h"

#include "Display/Display.h"

namespace {
const char kRemove[] = "Remove";
const size_t kRemoveStop = 16;  // after "255.255.255.255 "

// The stop's only character: UP and DOWN leave it as it is.
const CCharSet& RemoveStop()
{
    static const CCharSet set("R");
    return set;
}
}  // namespace

CEditRemoveIpLine::CEditRemoveIpLine() : m_bRemoveRequested(false) {}

CEntryLine::Template_t CEditRemoveIpLine::EditTemplate()
{
    Template_t edit = CGenericIpLine::EditTemplate();
    edit.text += std::string(" ") + kRemove;
    edit.sets.resize(edit.text.size(), nullptr);
    edit.sets[kRemoveStop] = &RemoveStop();
    return edit;
}

bool CEditRemoveIpLine::OnRemoveStop() const
{
    return m_bEditing && Editor().Index() == static_cast<int>(kRemoveStop);
}

bool CEditRemoveIpLine::HandleKey(const KeyPress_t& key)
{
    if (key.key == KEY_ENTER && m_bEditing && !m_bReadOnly && OnRemoveStop()) {
        m_bEditing = false;
        m_bRemoveRequested = true;
        if (m_onRemove)
            m_onRemove(*this);
        return false;
    }
    if (key.key == KEY_ENTER && !m_bEditing)
        m_bRemoveRequested = false;
    return CGenericIpLine::HandleKey(key);
}

void CEditRemoveIpLine::ShowCursor(int row)
{
    if (!OnRemoveStop() || m_pDisplay == nullptr) {
        CGenericIpLine::ShowCursor(row);
        return;
    }
    // The whole word is the cursor, so it reads as a choice rather than a letter.
    m_cursor.SetRow(row);
    int column = ValueColumn() + Editor().Column();
    std::string word(kRemove);
    if (column + static_cast<int>(word.size()) > m_iLineWidth)
        word.resize(static_cast<size_t>(m_iLineWidth > column ? m_iLineWidth - column : 0));
    m_pDisplay->QueueHighlight(word, row, column);
}
