#include "Lines/AddRowIpLine.h"

#include "Client/TavClient.h"

namespace {
const char* const kCreateAndGo = "4";
}

CAddRowIpLine::CAddRowIpLine()
{
    SetValue("0.0.0.0");
}

Qb::uint32 CAddRowIpLine::WriteObject(const std::string& address)
{
    if (m_pClient == nullptr || m_strObjectName.empty())
        return 0;
    bool written = m_pClient->SendData(m_strObjectName, m_strObjectInstance + "." + address, kCreateAndGo);
    SetValue("0.0.0.0");  // ready for the next one
    return written ? 1 : 0;
}
