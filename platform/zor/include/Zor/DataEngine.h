// Reads, subscriptions and thread attachment of the controller client.
#pragma once

#include <memory>
#include <string>

#include "Zor/EventSink.h"
#include "Zor/Oid.h"
#include "Zor/Param.h"
#include "Zor/Ret.h"

namespace Zor {

class ITransport;

class CDataEngine {
public:
    virtual ~CDataEngine();

    // One value. The flag asks for the controller's current value rather than a cached
    // one; this SDK keeps no cache, so both behave alike.
    CRet GetVal(const std::string& client, const std::string& name, const COid& instance, bool fresh);
    // One value by full object key ("unitAlias.0", "avssconfigHdOutputAvail.1.1").
    CRet GetValue(const std::string& client, const std::string& key);
    // Multi-get of a list of keys and "%" patterns ("tsinputsrcLabel.%"). Val is a map:
    // object name -> map of instance text (".1.2") -> value, instances in oid order. Unknown
    // keys are left out; Success is false only when the controller cannot be reached or the
    // request is malformed.
    CRet GetValues(const std::string& client, const CParam& keys);
    // Subsystem query: Val maps each present type name to a list of its instance texts;
    // null when none of the asked types is present.
    CRet QuerySubsystems(const std::string& client, const CParam& types, const COid& instance, bool deep);

    // Subscriptions are (name, sink, instance); ".%" matches every instance; the same triple
    // registered twice is kept once. Removal never waits for a delivery in progress (so it
    // cannot deadlock against a call-back); after it returns no new delivery to that
    // subscription starts. Removing from inside the sink's own call-back is allowed.
    CRet AddManagedEventHandler(const std::string& name, IManagedEventSink* sink, const std::string& instance);
    CRet RemoveManagedEventHandler(const std::string& name, IManagedEventSink* sink, const std::string& instance);

    // Brackets work done on threads other than the main thread.
    CRet AttachThread();
    CRet DetachThread();

protected:
    explicit CDataEngine(std::shared_ptr<ITransport> transport);
    std::shared_ptr<ITransport> m_pTransport;
};

}  // namespace Zor
