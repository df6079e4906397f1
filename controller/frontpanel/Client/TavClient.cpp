#include "Client/TavClient.h"

#include <cstdio>

#include "Qb/Thread.h"

CTavClient::CTavClient(Zor::CZorClient* pClient) : m_pClient(pClient), m_timer(Qb::CThread::GetPriority()) {}

CTavClient::~CTavClient() {}

std::string CTavClient::GetData(const char* name, const char* instance)
{
    if (name == nullptr || instance == nullptr || *name == '\0' || *instance == '\0') {
        printf("GetData Error1: Name: %s, Instance: %s\n", name ? name : "", instance ? instance : "");
        return std::string();
    }
    return m_pClient->GetVal(kZorClientName, name, Zor::COid(instance), true).Val().ToString("");
}

std::string CTavClient::GetData(const std::string& name, const std::string& instance)
{
    if (name.empty() || instance.empty()) {
        printf("GetData Error2: Name: %s, Instance: %s\n", name.c_str(), instance.c_str());
        return std::string();
    }
    return m_pClient->GetVal(kZorClientName, name, Zor::COid(instance), true).Val().ToString("");
}

bool CTavClient::SendData(const std::string& name, const std::string& instance, const std::string& value)
{
    return SendOp(kZorClientName, name, Zor::COid(instance), value).Success();
}

std::string CTavClient::SendDataMsg(const std::string& name, const std::string& instance,
                                    const std::string& value)
{
    return SendOp(kZorClientName, name, Zor::COid(instance), value).Msg();
}

Zor::CRet CTavClient::SendOp(const std::string& client, const std::string& name, const Zor::COid& instance,
                             const std::string& value)
{
    return m_pClient->SendOp(client, name, instance, Zor::CParam::String(value));
}

bool CTavClient::SendDataChecked(const std::string& name, const std::string& instance,
                                 const std::string& value)
{
    bool ok = true;
    if (name.empty() || instance.empty()) {
        printf("SendData Error: %s, Instance: %s\n", name.c_str(), instance.c_str());
        ok = false;
    }
    // Deliberately sends anyway: the controller has the last word on a bad key, and the
    // caller only learns whether the key looked complete.
    Zor::CRequest request(Zor::CParam::String(value));
    (void)SendOp(kZorClientName, name, Zor::COid(instance), request.Param().ToString(""));
    return ok;
}

Zor::CRet CTavClient::SendTxn(const std::string& client, const Zor::CTxn& txn)
{
    return m_pClient->SendTxn(client, txn);
}

Zor::CRet CTavClient::GetValue(const std::string& client, const std::string& key)
{
    return m_pClient->GetValue(client, key);
}

bool CTavClient::HasValue(const std::string& client, const std::string& key)
{
    return GetValue(client, key).Success();
}

Zor::CRet CTavClient::GetValues(const std::string& client, const Zor::CParam& request)
{
    return m_pClient->GetValues(client, request);
}

Zor::CParam CTavClient::QuerySubsystem(const std::string& type)
{
    Zor::CParam types(Zor::PT_LIST);
    types.AddParam(Zor::CParam::String(type));
    return m_pClient->QuerySubsystems(kZorClientName, types, Zor::COid(".0"), false).Val();
}

Zor::CRet CTavClient::AddEventHandler(const std::string& name, Zor::IManagedEventSink* pSink,
                                      const std::string& instance)
{
    return m_pClient->AddManagedEventHandler(name, pSink, instance);
}

Zor::CRet CTavClient::RemoveEventHandler(const std::string& name, Zor::IManagedEventSink* pSink,
                                         const std::string& instance)
{
    return m_pClient->RemoveManagedEventHandler(name, pSink, instance);
}

void CTavClient::AttachThread()
{
    (void)m_pClient->AttachThread();
}

void CTavClient::DetachThread()
{
    (void)m_pClient->DetachThread();
}
