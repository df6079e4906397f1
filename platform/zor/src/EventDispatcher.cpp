#include <pthread.h>

#include "Transport.h"

namespace Zor {

namespace {

bool NormaliseInstance(const std::string& text, std::string& out)
{
    if (text == "%" || text == ".%") {
        out = ".%";
        return true;
    }
    COid oid;
    if (!oid.Str2Oid(text.c_str())) {
        return false;
    }
    out = oid.OidStr();
    return true;
}

}  // namespace

CEventDispatcher::CEventDispatcher() : m_bStop(false), m_thread(&CEventDispatcher::Run, this) {}

CEventDispatcher::~CEventDispatcher()
{
    Stop();
}

void CEventDispatcher::Stop()
{
    {
        std::lock_guard<std::mutex> lock(m_queueMutex);
        m_bStop = true;
        m_queue.clear();
    }
    m_cvQueue.notify_all();
    if (m_thread.joinable()) {
        if (m_thread.get_id() == std::this_thread::get_id()) {
            // Stopped from a call-back: the thread ends when the call-back returns.
            m_thread.detach();
        } else {
            m_thread.join();
        }
    }
}

void CEventDispatcher::Post(const std::string& name, const COid& instance, const CParam& value)
{
    {
        std::lock_guard<std::mutex> lock(m_queueMutex);
        if (m_bStop) {
            return;
        }
        m_queue.push_back(Event_t{name, instance, value});
    }
    m_cvQueue.notify_one();
}

CRet CEventDispatcher::Add(const std::string& name, IManagedEventSink* sink, const std::string& instance,
                           bool& newPattern)
{
    newPattern = false;
    std::string inst;
    if (name.empty() || sink == nullptr || !NormaliseInstance(instance, inst)) {
        return CRet::Fail("subscription needs a name, a sink and an instance (\".%\" or an oid), not \"" +
                          name + "\" \"" + instance + "\"");
    }
    std::lock_guard<std::mutex> lock(m_subMutex);
    bool patternSeen = false;
    for (const auto& s : m_subs) {
        if (s->name == name && s->instance == inst) {
            if (s->sink == sink) {
                return CRet::Ok();  // the same triple is kept once
            }
            patternSeen = true;
        }
    }
    m_subs.push_back(std::make_shared<Sub_t>(Sub_t{name, inst, sink, true}));
    newPattern = !patternSeen;
    return CRet::Ok();
}

CRet CEventDispatcher::Remove(const std::string& name, IManagedEventSink* sink, const std::string& instance,
                              bool& lastPattern)
{
    lastPattern = false;
    std::string inst;
    if (!NormaliseInstance(instance, inst)) {
        return CRet::Fail("no subscription for " + name + " \"" + instance + "\"");
    }
    std::lock_guard<std::mutex> lock(m_subMutex);
    bool removed = false;
    bool patternLeft = false;
    for (auto it = m_subs.begin(); it != m_subs.end();) {
        if ((*it)->name == name && (*it)->instance == inst) {
            if ((*it)->sink == sink) {
                // A delivery that already passed its check may still be running: we do
                // not wait for it, so a call-back may unsubscribe itself or another.
                (*it)->active = false;
                it = m_subs.erase(it);
                removed = true;
                continue;
            }
            patternLeft = true;
        }
        ++it;
    }
    if (!removed) {
        return CRet::Fail("no subscription for " + name + " " + inst);
    }
    lastPattern = !patternLeft;
    return CRet::Ok();
}

std::vector<std::pair<std::string, std::string>> CEventDispatcher::Patterns() const
{
    std::lock_guard<std::mutex> lock(m_subMutex);
    std::vector<std::pair<std::string, std::string>> out;
    for (const auto& s : m_subs) {
        std::pair<std::string, std::string> p(s->name, s->instance);
        bool seen = false;
        for (const auto& q : out) {
            seen = seen || q == p;
        }
        if (!seen) {
            out.push_back(p);
        }
    }
    return out;
}

void CEventDispatcher::Run()
{
    pthread_setname_np(pthread_self(), "zor-events");  // shows in top and the debugger
    while (true) {
        Event_t event;
        {
            std::unique_lock<std::mutex> lock(m_queueMutex);
            m_cvQueue.wait(lock, [this] { return m_bStop || !m_queue.empty(); });
            if (m_bStop) {
                return;
            }
            event = std::move(m_queue.front());
            m_queue.pop_front();
        }
        std::vector<std::shared_ptr<Sub_t>> targets;
        std::string inst = event.instance.OidStr();
        {
            std::lock_guard<std::mutex> lock(m_subMutex);
            for (const auto& s : m_subs) {
                if ((s->name == event.name || s->name == "*") &&
                    (s->instance == ".%" || s->instance == inst)) {
                    targets.push_back(s);
                }
            }
        }
        for (const auto& s : targets) {
            {
                std::lock_guard<std::mutex> lock(m_subMutex);
                if (!s->active) {
                    continue;
                }
            }
            // No lock is held during the call-back, so it may (un)subscribe or write.
            s->sink->ManagedEvent(event.name, event.instance, event.value);
        }
    }
}

}  // namespace Zor
