#include "Lines/GenericHexNumLine.h"

#include "Qb/Str.h"

CGenericHexNumLine::CGenericHexNumLine(int digits, Qb::uint32 max)
    : m_iDigits(digits < 1 ? 1 : (digits > 8 ? 8 : digits)), m_uMax(max), m_uValue(0), m_bDecimal(false)
{
    if (m_uMax == 0)
        m_uMax = m_iDigits == 8 ? 0xFFFFFFFFu : (1u << (4 * m_iDigits)) - 1u;
    m_cursor.SetItemCount(m_iDigits);
}

bool CGenericHexNumLine::SetValue(const char* value)
{
    std::string text = Qb::Str::Trim(value != nullptr ? value : "");
    if (m_bDecimal) {
        // Two defaults tell a real number from a text that does not convert.
        Qb::uint32 a = Qb::Str::ToUInt32(text, 0);
        if (a == 0 && Qb::Str::ToUInt32(text, 1) != 0)
            return false;
        m_uValue = a;
        return true;
    }
    return ParseHex(text, &m_uValue);
}

std::string CGenericHexNumLine::GetValue()
{
    if (m_bEditing)
        return Editor().Text();
    if (m_bDecimal)
        return Qb::Str::Format("%u", static_cast<unsigned>(m_uValue));
    return Hex(m_uValue);
}

std::string CGenericHexNumLine::Hex(Qb::uint32 value) const
{
    // Two steps: "%%0%dX" makes the conversion for the digit count ("%04X"), which then
    // formats the value.
    std::string pattern = Qb::Str::Format("%%0%dX", m_iDigits);
    return Qb::Str::Format(pattern.c_str(), static_cast<unsigned>(value));
}

CEntryLine::Template_t CGenericHexNumLine::EditTemplate()
{
    Template_t edit;
    edit.text = Hex(m_uValue);
    edit.sets.assign(edit.text.size(), &CCharSet::Hexadecimal());
    return edit;
}

bool CGenericHexNumLine::Accept(const std::string& edited)
{
    Qb::uint32 value = 0;
    if (!ParseHex(edited, &value))
        return false;
    m_uValue = value > m_uMax ? m_uMax : value;
    return true;
}

bool CGenericHexNumLine::ParseHex(std::string text, Qb::uint32* pValue)
{
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
        text.erase(0, 2);
    if (text.empty() || text.size() > 8)
        return false;
    Qb::uint32 value = 0;
    for (char c : text) {
        int digit;
        if (c >= '0' && c <= '9')
            digit = c - '0';
        else if (c >= 'A' && c <= 'F')
            digit = c - 'A' + 10;
        else if (c >= 'a' && c <= 'f')
            digit = c - 'a' + 10;
        else
            return false;
        value = (value << 4) | static_cast<Qb::uint32>(digit);
    }
    *pValue = value;
    return true;
}
