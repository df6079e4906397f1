#include "Lines/BissKeyLine.h"

#include <cctype>

namespace {
const char kUnset = '*';
}

CBissKeyLine::CBissKeyLine(int digits) : m_iPlaceholders(digits < 0 ? 0 : digits)
{
    m_strKey.assign(static_cast<size_t>(m_iPlaceholders), kUnset);
    m_cursor.SetItemCount(m_iPlaceholders);
}

bool CBissKeyLine::SetValue(const char* value)
{
    m_strKey = Normalised(value != nullptr ? value : "");
    return true;
}

std::string CBissKeyLine::GetValue()
{
    const std::string& key = m_bEditing ? Editor().Text() : m_strKey;
    std::string::size_type end = key.find_last_not_of(kUnset);
    return end == std::string::npos ? std::string() : key.substr(0, end + 1);
}

CEntryLine::Template_t CBissKeyLine::EditTemplate()
{
    Template_t edit;
    edit.text = m_strKey;
    edit.sets.assign(edit.text.size(), &CCharSet::Hexadecimal());
    return edit;
}

bool CBissKeyLine::Accept(const std::string& edited)
{
    m_strKey = Normalised(edited);
    return true;
}

std::string CBissKeyLine::Normalised(const std::string& text) const
{
    std::string key(static_cast<size_t>(m_iPlaceholders), kUnset);
    for (size_t i = 0; i < key.size() && i < text.size(); ++i) {
        char c = static_cast<char>(std::toupper(static_cast<unsigned char>(text[i])));
        if (CCharSet::Hexadecimal().Contains(c))
            key[i] = c;
    }
    return key;
}
