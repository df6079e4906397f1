#include "Lines/GenericList.h"

#include <algorithm>
#include <sstream>

#include "Display/Display.h"

CGenericList::CGenericList() : m_iCommitted(0), m_iPending(0), m_iHiddenCount(0)
{
    m_uKind = 1;
    m_uIdleHint = 6;
    m_uEditHint = 6;
}

void CGenericList::ClearEntries()
{
    m_entries.clear();
    m_hidden.clear();
    m_iHiddenCount = 0;
    m_iCommitted = 0;
    m_iPending = 0;
    PlaceCursor();
}

int CGenericList::AddEntry(const std::string& text)
{
    return AddEntry(text, text);
}

int CGenericList::AddEntry(const std::string& text, const std::string& value)
{
    // Entry texts often come from the controller (service names): make them safe to show.
    // The controller text stays as it is, since reads must match it exactly.
    std::string shown = text;
    CDisplay::ReplaceUnsupportedChars(shown);
    m_entries.push_back(Entry_t{shown, value});
    PlaceCursor();
    return GetEntryCount() - 1;
}

bool CGenericList::IsHidden(int index) const
{
    return std::binary_search(m_hidden.begin(), m_hidden.end(), index);
}

bool CGenericList::HideEntry(int index)
{
    if (index < 0 || index >= GetEntryCount() || IsHidden(index))
        return false;
    m_hidden.insert(std::upper_bound(m_hidden.begin(), m_hidden.end(), index), index);
    m_iHiddenCount = static_cast<Qb::int32>(m_hidden.size());
    PlaceCursor();
    return true;
}

bool CGenericList::ShowEntry(int index)
{
    std::vector<Qb::int32>::iterator it = std::lower_bound(m_hidden.begin(), m_hidden.end(), index);
    if (it == m_hidden.end() || *it != index)
        return false;
    m_hidden.erase(it);
    m_iHiddenCount = static_cast<Qb::int32>(m_hidden.size());
    PlaceCursor();
    return true;
}

// Visible position -> entry index: one more for every hidden index not above the running
// value, walking the hidden indices in ascending order.
int CGenericList::EntryAt(int position) const
{
    int index = position;
    for (Qb::int32 hidden : m_hidden)
        if (hidden <= index)
            ++index;
    return index;
}

int CGenericList::PositionOf(int index) const
{
    int position = index;
    for (Qb::int32 hidden : m_hidden)
        if (hidden <= index)
            --position;
    return position;
}

void CGenericList::PlaceCursor()
{
    m_cursor.SetItemCount(GetEntryCount() - m_iHiddenCount);
    int position = IsHidden(m_iCommitted) ? 0 : PositionOf(m_iCommitted);
    m_cursor.SetIndex(position < 0 ? 0 : position);
}

bool CGenericList::SetIndex(int index)
{
    if (index < 0 || index >= GetEntryCount() || IsHidden(index))
        return false;
    m_iCommitted = index;
    m_cursor.SetIndex(PositionOf(index));
    m_iPending = m_iCommitted;
    return true;
}

bool CGenericList::SetValue(const char* value)
{
    std::string text = value != nullptr ? value : "";
    for (size_t i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].value == text)
            return SetIndex(static_cast<int>(i));  // a hidden match is refused
    return false;
}

const CGenericList::Entry_t* CGenericList::Shown() const
{
    int index = m_bEditing ? m_iPending : m_iCommitted;
    if (index < 0 || index >= GetEntryCount())
        return nullptr;
    return &m_entries[static_cast<size_t>(index)];
}

std::string CGenericList::GetValue()
{
    const Entry_t* pEntry = Shown();
    if (pEntry == nullptr)
        return std::string();
    std::ostringstream text;
    text << pEntry->value;
    return text.str();
}

std::string CGenericList::GetText()
{
    const Entry_t* pEntry = Shown();
    return pEntry != nullptr ? pEntry->text : std::string();
}

bool CGenericList::HandleKey(const KeyPress_t& key)
{
    bool visible = GetEntryCount() > m_iHiddenCount;
    switch (key.key) {
        case KEY_UP:
            // Deliberate: UP goes to the next (higher) entry, the reverse of UP in a menu.
            if (visible) {
                m_cursor.MoveDown();
                m_iPending = EntryAt(m_cursor.GetIndex());
            }
            return m_bEditing;
        case KEY_DOWN:
            if (visible) {
                m_cursor.MoveUp();
                m_iPending = EntryAt(m_cursor.GetIndex());
            }
            return m_bEditing;
        case KEY_EXIT:
            m_bEditing = false;
            m_iPending = m_iCommitted;
            PlaceCursor();
            return false;
        case KEY_ENTER:
            if (!m_bEditing) {
                // Editing starts even with nothing to choose from: the panel shows the
                // edit, and UP and DOWN then change nothing.
                if (!m_bReadOnly)
                    m_bEditing = true;
                m_iPending = m_iCommitted;
                return m_bEditing;
            }
            m_bEditing = false;
            m_iCommitted = m_iPending;
            // A list without entries has no committed entry, so no value to write.
            if (!m_bReadOnly && m_bBound && GetEntryCount() > 0)
                WriteObject(GetValue());
            if (m_onCommit)
                m_onCommit(*this);
            return false;
        default:
            return m_bEditing;  // LEFT and RIGHT are ignored
    }
}

void CGenericList::Draw(int row)
{
    DrawLayout(row, GetText(), m_bEditing);
}
