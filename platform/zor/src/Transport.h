// The SDK's link to a controller, and the event delivery that every link shares.
#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Zor/EventSink.h"
#include "Zor/Oid.h"
#include "Zor/Param.h"
#include "Zor/Ret.h"

namespace Zor {

struct WriteOp_t {
    std::string name;
    std::string instance;  // leading-point text
    CParam value;
};

// Subscriptions (name, sink, instance) and the one delivery thread of a client. Events are
// posted by the link in write order and delivered in that order.
class CEventDispatcher {
public:
    CEventDispatcher();
    ~CEventDispatcher();
    CEventDispatcher(const CEventDispatcher&) = delete;
    CEventDispatcher& operator=(const CEventDispatcher&) = delete;

    void Post(const std::string& name, const COid& instance, const CParam& value);

    // instance is ".%" (or "%") or an oid text; newPattern tells whether (name, instance)
    // had no subscription before, lastPattern whether it has none after.
    CRet Add(const std::string& name, IManagedEventSink* sink, const std::string& instance, bool& newPattern);
    CRet Remove(const std::string& name, IManagedEventSink* sink, const std::string& instance,
                bool& lastPattern);
    // The distinct (name, instance) pairs subscribed now.
    std::vector<std::pair<std::string, std::string>> Patterns() const;

    // Ends delivery; events still queued are dropped. Idempotent.
    void Stop();

private:
    struct Sub_t {
        std::string name;
        std::string instance;  // ".%" or the oid's text
        IManagedEventSink* sink;
        bool active;  // guarded by m_subMutex
    };
    struct Event_t {
        std::string name;
        COid instance;
        CParam value;
    };

    void Run();

    mutable std::mutex m_subMutex;
    std::vector<std::shared_ptr<Sub_t>> m_subs;

    std::mutex m_queueMutex;
    std::condition_variable m_cvQueue;
    std::deque<Event_t> m_queue;
    bool m_bStop;
    std::thread m_thread;
};

// A controller link. Requests fail with a message when the controller cannot be reached;
// none waits longer than the link's time-out.
class ITransport {
public:
    virtual ~ITransport() = default;

    // Val: map of name -> map of instance text -> value; unknown keys left out.
    virtual CRet Get(const std::vector<std::string>& keys) = 0;
    virtual CRet GetOne(const std::string& name, const COid& instance) = 0;
    virtual CRet Set(const std::string& client, const WriteOp_t& op, bool force) = 0;
    virtual CRet Txn(const std::string& client, const std::vector<WriteOp_t>& ops, bool force) = 0;
    virtual CRet Subsystems(const std::vector<std::string>& types) = 0;
    // The first subscription of a (name, instance) pattern, and the end of its last one.
    virtual void Watch(const std::string& /*name*/, const std::string& /*instance*/) {}
    virtual void Unwatch(const std::string& /*name*/, const std::string& /*instance*/) {}
    // Stops the link's own threads; called before the dispatcher goes.
    virtual void Shutdown() {}

    CEventDispatcher& Events() { return m_events; }

protected:
    CEventDispatcher m_events;
};

// "embedded", "embedded:FILE" or "unix:PATH"; never null (a bad target gives a link whose
// requests fail with the reason).
std::shared_ptr<ITransport> MakeTransport(const std::string& target);
std::shared_ptr<ITransport> MakeEmbeddedTransport(const std::string& file);
std::shared_ptr<ITransport> MakeUnixTransport(const std::string& path);
std::shared_ptr<ITransport> MakeFailedTransport(const std::string& msg);

}  // namespace Zor
