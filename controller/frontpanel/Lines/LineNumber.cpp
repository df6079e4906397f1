#include "Lines/LineNumber.h"

#include <cmath>
#include <cstdlib>

#include "Qb/Str.h"

CLineNumber::CLineNumber(int width, int decimals, double min, double max)
    : m_iWidth(width < 1 ? 1 : width),
      m_iDecimals(decimals < 0 ? 0 : decimals),
      m_dMin(min),
      m_dMax(max),
      m_dValue(0.0)
{
    m_dValue = Limited(0.0);
    m_cursor.SetItemCount(m_iWidth);
}

bool CLineNumber::SetValue(const char* value)
{
    return Parse(value != nullptr ? value : "", &m_dValue);
}

std::string CLineNumber::Format(double value) const
{
    // Two steps: "%%0%d.%df" makes the conversion ("%05.1f"), which then formats the value.
    std::string pattern = Qb::Str::Format("%%0%d.%df", m_iWidth, m_iDecimals);
    return Qb::Str::Format(pattern.c_str(), value);
}

double CLineNumber::Limited(double value) const
{
    if (m_dMin >= m_dMax)
        return value;
    return value < m_dMin ? m_dMin : (value > m_dMax ? m_dMax : value);
}

CEntryLine::Template_t CLineNumber::EditTemplate()
{
    Template_t edit;
    edit.text = Format(m_dValue);
    for (size_t i = 0; i < edit.text.size(); ++i) {
        char c = edit.text[i];
        if (i == 0 && m_dMin < 0.0 && m_dMin < m_dMax)
            edit.sets.push_back(&SignOrDigit());
        else
            edit.sets.push_back(c >= '0' && c <= '9' ? &CCharSet::Decimal() : nullptr);
    }
    return edit;
}

bool CLineNumber::Accept(const std::string& edited)
{
    double value = 0.0;
    if (!Parse(edited, &value))
        return false;
    m_dValue = Limited(value);
    return true;
}

bool CLineNumber::Parse(const std::string& text, double* pValue)
{
    std::string trimmed = Qb::Str::Trim(text);
    if (trimmed.empty())
        return false;
    char* end = nullptr;
    double value = std::strtod(trimmed.c_str(), &end);
    if (end == nullptr || *end != '\0' || !std::isfinite(value))
        return false;
    *pValue = value;
    return true;
}

const CCharSet& CLineNumber::SignOrDigit()
{
    static const CCharSet set("-0123456789");
    return set;
}
