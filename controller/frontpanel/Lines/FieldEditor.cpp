#include "Lines/FieldEditor.h"

namespace {

std::string Members(bool (*test)(int))
{
    std::string order;
    for (int c = 0; c < 256; ++c)
        if (test(c))
            order += static_cast<char>(c);
    return order;
}

bool IsAlnum(int c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string Range(char first, char last)
{
    std::string text;
    for (int c = first; c <= last; ++c)
        text += static_cast<char>(c);
    return text;
}

}  // namespace

CCharSet::CCharSet(const std::string& order, bool byCode) : m_order(order), m_bByCode(byCode) {}

char CCharSet::Step(char current, bool up) const
{
    if (m_order.empty())
        return current;
    std::string::size_type at = m_order.find(current);
    int count = static_cast<int>(m_order.size());
    if (at != std::string::npos) {
        int next = static_cast<int>(at) + (up ? 1 : -1);
        return m_order[static_cast<size_t>((next + count) % count)];
    }
    int code = static_cast<unsigned char>(current);
    // Deliberate for sets 5 and 6: a character outside the set (a blank, or "A" in set 5)
    // moves to the neighbouring code, not into the set.
    if (m_bByCode)
        return static_cast<char>((code + (up ? 1 : -1) + 256) % 256);
    for (int i = 1; i < 256; ++i) {
        char candidate = static_cast<char>((code + (up ? i : -i) + 256) % 256);
        if (Contains(candidate))
            return candidate;
    }
    return current;
}

const CCharSet& CCharSet::ForTextSet(int set)
{
    static const CCharSet alnum(Members(IsAlnum));
    static const CCharSet names(Members([](int c) { return IsAlnum(c) || c == '-' || c == '_'; }));
    static const CCharSet hosts(
        Members([](int c) { return IsAlnum(c) || c == '-' || c == '.' || c == '_'; }));
    static const CCharSet printable(Range(' ', '~'));
    // Sets 5 and 6 step by code, with fixed steps across the seams of their own order.
    static const CCharSet lowerDigits(Range('a', 'z') + Range('0', '9') + "_", true);
    static const CCharSet letters(Range('a', 'z') + Range('A', 'Z') + "_", true);
    switch (set) {
        case 2:
            return names;
        case 3:
            return hosts;
        case 4:
            return printable;
        case 5:
            return lowerDigits;
        case 6:
            return letters;
        default:
            return alnum;  // 0, 1, and every other value
    }
}

const CCharSet& CCharSet::Decimal()
{
    static const CCharSet digits(Range('0', '9'));
    return digits;
}

const CCharSet& CCharSet::Hexadecimal()
{
    static const CCharSet digits(Range('0', '9') + Range('A', 'F'));
    return digits;
}

CFieldEditor::CFieldEditor(CCursor& cursor) : m_cursor(cursor), m_iWidth(0), m_iOffset(0) {}

void CFieldEditor::Start(const std::string& text, const std::vector<const CCharSet*>& sets, int width)
{
    m_text = text;
    m_sets = sets;
    m_sets.resize(m_text.size(), nullptr);
    m_iWidth = width < 0 ? 0 : width;
    m_iOffset = 0;
    m_cursor.SetItemCount(static_cast<Qb::int32>(m_text.size()));
    SetPosition(0);
    // Land on the first editable character (at most one lap).
    for (size_t i = 0; i < m_text.size() && !Editable(Index()); ++i)
        StepRight();
}

void CFieldEditor::MoveLeft()
{
    for (size_t i = 0; i < m_text.size(); ++i) {
        StepLeft();
        if (Editable(Index()))
            return;
    }
}

void CFieldEditor::MoveRight()
{
    for (size_t i = 0; i < m_text.size(); ++i) {
        StepRight();
        if (Editable(Index()))
            return;
    }
}

void CFieldEditor::Step(bool up)
{
    int index = Index();
    if (!Editable(index))
        return;
    char& c = m_text[static_cast<size_t>(index)];
    c = m_sets[static_cast<size_t>(index)]->Step(c, up);
}

std::string CFieldEditor::Visible() const
{
    if (m_iOffset >= static_cast<int>(m_text.size()))
        return std::string();
    return m_text.substr(static_cast<size_t>(m_iOffset), static_cast<size_t>(m_iWidth) + 1);
}

// The text line's cursor rules, L characters in a field of W: at the start of the value
// LEFT shows its end, and RIGHT past the end comes back to the start.
void CFieldEditor::StepLeft()
{
    int length = static_cast<int>(m_text.size());
    int position = m_cursor.GetIndex();
    if (position == 0 && m_iOffset > 0) {
        --m_iOffset;
    } else if (position == 0 && m_iWidth < length) {
        m_iOffset = length - m_iWidth - 1;
        SetPosition(m_iWidth);
    } else {
        m_cursor.MoveUp();  // wraps from the first position to the last
    }
}

void CFieldEditor::StepRight()
{
    int length = static_cast<int>(m_text.size());
    int lastOffset = length - m_iWidth - 1;
    int position = m_cursor.GetIndex();
    if (m_iOffset < lastOffset) {
        if (position < m_iWidth)
            m_cursor.MoveDown();
        else
            ++m_iOffset;
    } else if (position >= m_iWidth) {
        m_iOffset = 0;
        SetPosition(0);
    } else {
        m_cursor.MoveDown();  // wraps from the last position to the first
    }
}

bool CFieldEditor::Editable(int index) const
{
    return index >= 0 && index < static_cast<int>(m_sets.size()) &&
           m_sets[static_cast<size_t>(index)] != nullptr;
}

void CFieldEditor::SetPosition(int position)
{
    // Walk there: CCursor::SetIndex also moves the cursor's row, which an edit cursor keeps.
    while (m_cursor.GetIndex() > position)
        m_cursor.MoveUp();
    while (m_cursor.GetIndex() < position)
        m_cursor.MoveDown();
}
