// The controller client: a data engine that also writes.
#pragma once

#include <string>

#include "Zor/DataEngine.h"
#include "Zor/Op.h"

namespace Zor {

class CZorClient : public CDataEngine {
public:
    // Connects to the controller chosen by the process's CClientOpts (embedded when none was
    // built). Never throws: an unreachable controller makes requests fail with a Msg until
    // it can be reached, and the client reconnects and restores its subscriptions by itself.
    explicit CZorClient(const std::string& name);
    // Connects to an explicit target: "embedded", "embedded:FILE" or "unix:PATH".
    CZorClient(const std::string& name, const std::string& target);
    ~CZorClient() override;

    CRet SendOp(const std::string& client, const std::string& name, const COid& instance, const CParam& value);
    // All operations apply, or none.
    CRet SendTxn(const std::string& client, const CTxn& txn);

    const std::string& Name() const { return m_strName; }

private:
    std::string m_strName;
};

}  // namespace Zor
