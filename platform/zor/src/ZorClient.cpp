#include "Zor/ZorClient.h"

#include "Transport.h"
#include "Zor/ClientOpts.h"

namespace Zor {

namespace {

std::string ChosenController()
{
    const CClientOpts* opts = CClientOpts::Current();
    return opts != nullptr ? opts->GetController() : "embedded";
}

}  // namespace

CZorClient::CZorClient(const std::string& name)
    : CDataEngine(MakeTransport(ChosenController())), m_strName(name)
{
}

CZorClient::CZorClient(const std::string& name, const std::string& target)
    : CDataEngine(MakeTransport(target)), m_strName(name)
{
}

CZorClient::~CZorClient() = default;

CRet CZorClient::SendOp(const std::string& client, const std::string& name, const COid& instance,
                        const CParam& value)
{
    return m_pTransport->Set(client, WriteOp_t{name, instance.OidStr(), value}, false);
}

CRet CZorClient::SendTxn(const std::string& client, const CTxn& txn)
{
    std::vector<WriteOp_t> ops;
    for (const auto& op : txn.Ops()) {
        ops.push_back(WriteOp_t{op.Name(), op.Instance().OidStr(), op.Value()});
    }
    return m_pTransport->Txn(client, ops, false);
}

}  // namespace Zor
