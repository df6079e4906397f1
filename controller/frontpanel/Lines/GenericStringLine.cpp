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
    m_strHeld = value != nullptr ? value : "";
    m_strShown = m_strHeld;
    CDisplay::ReplaceUnsupportedChars(m_strShown);
    if (static_cast<int>(m_strShown.size()) > m_iMaxLength)
        m_strShown.resize(static_cast<size_t>(m_iMaxLength));
    return true;
}

std::string CGenericStringLine::GetValue()
{
    return m_bEditing ? WithoutFill(Editor().Text()) : m_strHeld;
}

CEntryLine::Template_t CGenericStringLine::EditTemplate()
{
    Template_t edit;
    edit.text = m_strShown;
    edit.text.resize(static_cast<size_t>(m_iMaxLength), kFill);
    edit.sets.assign(edit.text.size(), &CCharSet::ForTextSet(m_iCharSet));
    return edit;
}

bool CGenericStringLine::Accept(const std::string& edited)
{
    // Confirmed unchanged, the value stays what the unit held, uncut: what was shown is
    // only the part that fits.
    std::string typed = WithoutFill(edited);
    if (typed != m_strShown)
        m_strHeld = m_strShown = typed;
    return true;
}

std::string CGenericStringLine::WithoutFill(const std::string& text)
{
    std::string::size_type end = text.find_last_not_of(kFill);
    return end == std::string::npos ? std::string() : text.substr(0, end + 1);
}
