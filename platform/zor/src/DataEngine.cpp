#include "Zor/DataEngine.h"

#include "Transport.h"

namespace Zor {

namespace {

// A list of texts, or one text, into keys; false on anything else.
bool TextList(const CParam& param, std::vector<std::string>& out)
{
    if (param.Type() == PT_STRING) {
        out.push_back(param.ToString(""));
        return true;
    }
    if (!param.IsList()) {
        return false;
    }
    for (int i = 0; i < param.Length(); ++i) {
        if (param[i].Type() != PT_STRING) {
            return false;
        }
        out.push_back(param[i].ToString(""));
    }
    return true;
}

}  // namespace

CDataEngine::CDataEngine(std::shared_ptr<ITransport> transport) : m_pTransport(std::move(transport)) {}

CDataEngine::~CDataEngine()
{
    // Delivery stops first, so no call-back runs into a link that is going away.
    m_pTransport->Events().Stop();
    m_pTransport->Shutdown();
}

CRet CDataEngine::GetVal(const std::string& /*client*/, const std::string& name, const COid& instance,
                         bool /*fresh*/)
{
    if (name.empty() || instance.IsEmpty()) {
        return CRet::Fail("a read needs an object name and an instance");
    }
    return m_pTransport->GetOne(name, instance);
}

CRet CDataEngine::GetValue(const std::string& /*client*/, const std::string& key)
{
    size_t dot = key.find('.');
    if (dot == std::string::npos || dot == 0 || dot + 1 >= key.size()) {
        return CRet::Fail("bad object key \"" + key + "\" (name.instance)");
    }
    std::string name = key.substr(0, dot);
    std::string instance = key.substr(dot + 1);
    if (instance == "%") {
        // A pattern reads every instance: Val is the instance map.
        CRet all = m_pTransport->Get(std::vector<std::string>(1, key));
        if (!all.Success()) {
            return all;
        }
        if (!all.Val().KeyExists(name)) {
            return CRet::Fail("unknown object: " + name);
        }
        return CRet::Ok(all.Val()[name]);
    }
    COid oid;
    if (!oid.Str2Oid(instance.c_str())) {
        return CRet::Fail("bad object key \"" + key + "\" (name.instance)");
    }
    return m_pTransport->GetOne(name, oid);
}

CRet CDataEngine::GetValues(const std::string& /*client*/, const CParam& keys)
{
    std::vector<std::string> list;
    if (!TextList(keys, list)) {
        return CRet::Fail("malformed request: keys must be a list of texts");
    }
    return m_pTransport->Get(list);
}

CRet CDataEngine::QuerySubsystems(const std::string& /*client*/, const CParam& types,
                                  const COid& /*instance*/, bool /*deep*/)
{
    std::vector<std::string> list;
    if (!TextList(types, list)) {
        return CRet::Fail("malformed request: subsystem types must be a list of texts");
    }
    return m_pTransport->Subsystems(list);
}

CRet CDataEngine::AddManagedEventHandler(const std::string& name, IManagedEventSink* sink,
                                         const std::string& instance)
{
    bool newPattern = false;
    CRet ret = m_pTransport->Events().Add(name, sink, instance, newPattern);
    if (ret.Success() && newPattern) {
        m_pTransport->Watch(name, instance);
    }
    return ret;
}

CRet CDataEngine::RemoveManagedEventHandler(const std::string& name, IManagedEventSink* sink,
                                            const std::string& instance)
{
    bool lastPattern = false;
    CRet ret = m_pTransport->Events().Remove(name, sink, instance, lastPattern);
    if (ret.Success() && lastPattern) {
        m_pTransport->Unwatch(name, instance);
    }
    return ret;
}

// Our SDK needs no per-thread state; the calls are kept so callers bracket their work.
CRet CDataEngine::AttachThread()
{
    return CRet::Ok();
}

CRet CDataEngine::DetachThread()
{
    return CRet::Ok();
}

}  // namespace Zor
