#include "Lines/AddRowListLine.h"

#include "Client/Globals.h"
#include "Client/TavClient.h"
#include "Qb/Str.h"
#include "Zor/Op.h"
#include "Zor/Param.h"

CAddRowListLine::CAddRowListLine(const std::string& column) : m_strColumn(column) {}

Qb::uint32 CAddRowListLine::WriteObject(const std::string& value)
{
    if (m_pClient == nullptr || m_strObjectName.empty() || value.empty())
        return 0;
    // The next row number after the highest one under the instance.
    Qb::uint32 next = 1;
    Zor::CParam request(Zor::PT_LIST);
    request.AddParam(Zor::CParam::String(m_strObjectName + ".%"));
    Zor::CRet rows = m_pClient->GetValues(kZorClientName, request);
    const Zor::CParam& found = rows.Val()[m_strObjectName];
    const std::string prefix = m_strObjectInstance + ".";
    for (int i = 0; rows.Success() && found.IsMap() && i < found.Length(); ++i) {
        const std::string instance = found.GetKey(i);
        if (instance.compare(0, prefix.size(), prefix) != 0)
            continue;
        const Qb::uint32 number = Qb::Str::ToUInt32(instance.substr(prefix.size()), 0);
        if (number >= next)
            next = number + 1;
    }
    const Zor::COid row((m_strObjectInstance + Qb::Str::Format(".%u", next)).c_str());
    Zor::CTxn txn;
    txn.AddOp(Zor::COp(m_strObjectName, row, Zor::CParam::String("4")));
    txn.AddOp(Zor::COp(m_strColumn, row, Zor::CParam::String(value)));
    return m_pClient->SendTxn(kZorClientName, txn).Success() ? 1 : 0;
}
