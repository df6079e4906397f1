// The virtual unit inside this process. Clients of one unit file share one unit, so a write
// by any of them reaches the subscribers of all.
#include <sys/stat.h>

#include <cstdlib>
#include <map>

#include "Transport.h"
#include "Unit/VirtualUnit.h"

#ifndef ZOR_DEFAULT_UNIT_FILE
#define ZOR_DEFAULT_UNIT_FILE ""
#endif

namespace Zor {

namespace {

class CFailedTransport : public ITransport {
public:
    explicit CFailedTransport(const std::string& msg) : m_strMsg(msg) {}
    ~CFailedTransport() override { m_events.Stop(); }
    CRet Get(const std::vector<std::string>&) override { return CRet::Fail(m_strMsg); }
    CRet GetOne(const std::string&, const COid&) override { return CRet::Fail(m_strMsg); }
    CRet Set(const std::string&, const WriteOp_t&, bool) override { return CRet::Fail(m_strMsg); }
    CRet Txn(const std::string&, const std::vector<WriteOp_t>&, bool) override
    {
        return CRet::Fail(m_strMsg);
    }
    CRet Subsystems(const std::vector<std::string>&) override { return CRet::Fail(m_strMsg); }

private:
    std::string m_strMsg;
};

class CEmbeddedTransport : public ITransport {
public:
    explicit CEmbeddedTransport(const std::shared_ptr<Unit::CVirtualUnit>& unit) : m_pUnit(unit)
    {
        m_iListener = m_pUnit->AddListener(
            [this](const Unit::Change_t& c) { m_events.Post(c.name, c.instance, c.value); });
    }
    ~CEmbeddedTransport() override { Shutdown(); }

    void Shutdown() override
    {
        if (m_iListener != 0) {
            m_pUnit->RemoveListener(m_iListener);
            m_iListener = 0;
        }
        m_events.Stop();
    }

    CRet Get(const std::vector<std::string>& keys) override { return CRet::Ok(m_pUnit->Get(keys)); }
    CRet GetOne(const std::string& name, const COid& instance) override
    {
        return m_pUnit->GetOne(name, instance);
    }
    CRet Set(const std::string& client, const WriteOp_t& op, bool force) override
    {
        return m_pUnit->Set(client, Unit::Write_t{op.name, op.instance, op.value}, force);
    }
    CRet Txn(const std::string& client, const std::vector<WriteOp_t>& ops, bool force) override
    {
        std::vector<Unit::Write_t> writes;
        for (const auto& op : ops) {
            writes.push_back(Unit::Write_t{op.name, op.instance, op.value});
        }
        return m_pUnit->Transaction(client, writes, force);
    }
    CRet Subsystems(const std::vector<std::string>& types) override
    {
        return CRet::Ok(m_pUnit->Subsystems(types));
    }

private:
    std::shared_ptr<Unit::CVirtualUnit> m_pUnit;
    int m_iListener = 0;
};

bool FileExists(const std::string& path)
{
    struct stat st {};
    return !path.empty() && stat(path.c_str(), &st) == 0;
}

}  // namespace

std::shared_ptr<ITransport> MakeFailedTransport(const std::string& msg)
{
    return std::make_shared<CFailedTransport>(msg);
}

std::shared_ptr<ITransport> MakeEmbeddedTransport(const std::string& file)
{
    static std::mutex s_mutex;
    static std::map<std::string, std::weak_ptr<Unit::CVirtualUnit>> s_units;

    std::string path = file;
    bool builtIn = path.empty();
    if (builtIn) {
        const char* env = std::getenv("ZOR_UNIT_FILE");
        path = (env != nullptr && *env != '\0') ? env : ZOR_DEFAULT_UNIT_FILE;
    }
    std::lock_guard<std::mutex> lock(s_mutex);
    std::shared_ptr<Unit::CVirtualUnit> unit = s_units[path].lock();
    if (!unit) {
        std::string error;
        if (builtIn && !FileExists(path)) {
            // The built-in unit before its file exists: a unit with nothing in it.
            unit = Unit::CVirtualUnit::Empty();
        } else {
            unit = Unit::CVirtualUnit::LoadFile(path, error);
        }
        if (!unit) {
            return MakeFailedTransport("embedded unit: " + error);
        }
        s_units[path] = unit;
    }
    return std::make_shared<CEmbeddedTransport>(unit);
}

std::shared_ptr<ITransport> MakeTransport(const std::string& target)
{
    if (target == "embedded") {
        return MakeEmbeddedTransport("");
    }
    if (target.compare(0, 9, "embedded:") == 0 && target.size() > 9) {
        return MakeEmbeddedTransport(target.substr(9));
    }
    if (target.compare(0, 5, "unix:") == 0 && target.size() > 5) {
        return MakeUnixTransport(target.substr(5));
    }
    return MakeFailedTransport("unknown controller \"" + target +
                               "\" (embedded, embedded:FILE or unix:PATH)");
}

}  // namespace Zor
