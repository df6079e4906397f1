#include "Lines/GenericStringLine.h"

#include "Display/Display.h"

namespace {
const char kFill = ' ';
}

CGenericStringLine::CGenericStringLine(int maxLength, int charSet)
    : m_iMaxLength(0), m_iCharSet(charSet), m_iExtra(0)
{
    SetMaxLength(maxLength);
}

void CGenericStringLine::SetMaxLength(int maxLength)
{
    m_iMaxLength = maxLength < 0 ? 0 : maxLength;
    m_cursor.SetItemCount(m_iMaxLength);
}

bool CGenericStringLine::SetValue(const char* value)
{
    std::string text = value != nullptr ? value : "";
    CDisplay::ReplaceUnsupportedChars(text);
    if (static_cast<int>(text.size()) > m_iMaxLength)
        text.resize(static_cast<size_t>(m_iMaxLength));
    m_strValue = text;
    return true;
}

std::string CGenericStringLine::GetValue()
{
    return m_bEditing ? WithoutFill(Editor().Text()) : m_strValue;
}

CEntryLine::Template_t CGenericStringLine::EditTemplate()
{
    Template_t edit;
    edit.text = m_strValue;
    edit.text.resize(static_cast<size_t>(m_iMaxLength), kFill);
    edit.sets.assign(edit.text.size(), &CCharSet::ForTextSet(m_iCharSet));
    return edit;
}

bool CGenericStringLine::Accept(const std::string& edited)
{
    m_strValue = WithoutFill(edited);
    return true;
}

std::string CGenericStringLine::WithoutFill(const std::string& text)
{
    std::string::size_type end = text.find_last_not_of(kFill);
    return end == std::string::npos ? std::string() : text.substr(0, end + 1);
}
