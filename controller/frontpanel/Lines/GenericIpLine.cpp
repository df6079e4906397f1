#include "Lines/GenericIpLine.h"

#include "Qb/Str.h"

namespace {
const size_t kGroupsLength = 15;  // "255.255.255.255"
}

CGenericIpLine::CGenericIpLine() : m_address(0u)
{
    m_cursor.SetItemCount(static_cast<Qb::int32>(kGroupsLength));
}

bool CGenericIpLine::SetValue(const char* value)
{
    std::string text = Qb::Str::Trim(value != nullptr ? value : "");
    if (text.empty()) {
        m_address = Qb::CIpAddress(0u);
        return true;
    }
    Qb::CIpAddress address;
    if (!address.Parse(text))
        return false;
    m_address = address;
    return true;
}

std::string CGenericIpLine::GetValue()
{
    if (!m_bEditing)
        return m_address.ToString();
    Qb::CIpAddress edited;
    return ParseGroups(Editor().Text(), &edited) ? edited.ToString() : Editor().Text();
}

CEntryLine::Template_t CGenericIpLine::EditTemplate()
{
    Template_t edit;
    edit.text =
        Qb::Str::Format("%03u.%03u.%03u.%03u", static_cast<unsigned>(m_address.Octet(0)),
                        static_cast<unsigned>(m_address.Octet(1)), static_cast<unsigned>(m_address.Octet(2)),
                        static_cast<unsigned>(m_address.Octet(3)));
    for (char c : edit.text)
        edit.sets.push_back(c == '.' ? nullptr : &CCharSet::Decimal());
    return edit;
}

bool CGenericIpLine::Accept(const std::string& edited)
{
    Qb::CIpAddress address;
    if (!ParseGroups(edited, &address))
        return false;
    if (m_acceptor && !m_acceptor(address))
        return false;
    m_address = address;
    return true;
}

bool CGenericIpLine::ParseGroups(const std::string& edited, Qb::CIpAddress* pAddress)
{
    if (edited.size() < kGroupsLength)
        return false;
    // CIpAddress reads "010" as 10, and refuses a group above 255.
    return pAddress->Parse(edited.substr(0, kGroupsLength));
}
