#include "Lines/ClockEntryLine.h"

CClockEntryLine::CClockEntryLine(const std::string& pattern, const std::string& initial)
    : m_strPattern(pattern), m_strPart(initial)
{
    m_cursor.SetItemCount(static_cast<Qb::int32>(pattern.size()));
}

bool CClockEntryLine::Fits(const std::string& text) const
{
    if (text.size() != m_strPattern.size())
        return false;
    for (size_t i = 0; i < text.size(); ++i) {
        bool digit = text[i] >= '0' && text[i] <= '9';
        if (m_strPattern[i] == '9' ? !digit : text[i] != m_strPattern[i])
            return false;
    }
    return true;
}

bool CClockEntryLine::Split(const std::string& text, std::string* pBefore, std::string* pPart,
                            std::string* pAfter) const
{
    size_t length = m_strPattern.size();
    if (text.size() < length)
        return false;
    size_t at = 0;
    if (!Fits(text.substr(0, length))) {
        at = text.size() - length;
        if (!Fits(text.substr(at)))
            return false;
    }
    *pBefore = text.substr(0, at);
    *pPart = text.substr(at, length);
    *pAfter = text.substr(at + length);
    return true;
}

bool CClockEntryLine::SetValue(const char* value)
{
    return Split(value != nullptr ? value : "", &m_strBefore, &m_strPart, &m_strAfter);
}

std::string CClockEntryLine::GetValue()
{
    return m_strBefore + (m_bEditing ? Editor().Text() : m_strPart) + m_strAfter;
}

int CClockEntryLine::Field(const std::string& part, size_t at, size_t count)
{
    int value = 0;
    for (size_t i = at; i < at + count && i < part.size(); ++i)
        value = value * 10 + (part[i] - '0');
    return value;
}

CEntryLine::Template_t CClockEntryLine::EditTemplate()
{
    Template_t edit;
    edit.text = m_strPart;
    for (char c : m_strPattern)
        edit.sets.push_back(c == '9' ? &CCharSet::Decimal() : nullptr);
    return edit;
}

bool CClockEntryLine::Accept(const std::string& edited)
{
    if (!Fits(edited) || !Valid(edited))
        return false;
    m_strPart = edited;
    std::string before, part, after;
    if (m_bBound && Split(ReadObject(), &before, &part, &after)) {
        m_strBefore = before;
        m_strAfter = after;
    }
    return true;
}
