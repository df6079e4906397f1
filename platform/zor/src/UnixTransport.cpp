// The link to a unitd over its Unix socket. A reader thread takes answers and events off the
// socket; when unitd goes away it connects again by itself and restores the subscriptions.
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <map>

#include "Transport.h"
#include "ZorJson/ParamJson.h"

namespace Zor {

namespace {

const int kDefaultTimeoutMs = 5000;
const int kRetryMs = 200;

int TimeoutMs()
{
    const char* env = std::getenv("ZOR_TIMEOUT_MS");
    int ms = env != nullptr ? std::atoi(env) : 0;
    return ms > 0 ? ms : kDefaultTimeoutMs;
}

class CUnixTransport : public ITransport {
public:
    explicit CUnixTransport(const std::string& path)
        : m_strPath(path), m_strTarget("unix:" + path), m_iTimeoutMs(TimeoutMs())
    {
        TryConnect();  // so that the first request does not race the reader thread
        m_reader = std::thread(&CUnixTransport::ReadLoop, this);
    }
    ~CUnixTransport() override { Shutdown(); }

    void Shutdown() override
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (m_bStop) {
                return;
            }
            m_bStop = true;
            if (m_iFd >= 0) {
                ::shutdown(m_iFd, SHUT_RDWR);
            }
        }
        m_cv.notify_all();
        if (m_reader.joinable()) {
            m_reader.join();
        }
        m_events.Stop();
    }

    CRet Get(const std::vector<std::string>& keys) override
    {
        Json req = {{"op", "get"}, {"keys", keys}};
        Json answer;
        CRet ret = Request(req, answer);
        return ret.Success() ? CRet::Ok(ParamFromJson(answer.value("values", Json::object()))) : ret;
    }

    CRet GetOne(const std::string& name, const COid& instance) override
    {
        Json req = {{"op", "read"}, {"name", name}, {"instance", instance.OidStr()}};
        Json answer;
        CRet ret = Request(req, answer);
        return ret.Success() ? CRet::Ok(ParamFromJson(answer.value("value", Json()))) : ret;
    }

    CRet Set(const std::string& client, const WriteOp_t& op, bool force) override
    {
        Json req = {{"op", "set"},
                    {"client", client},
                    {"name", op.name},
                    {"instance", op.instance},
                    {"value", ParamToJson(op.value)}};
        if (force) {
            req["force"] = true;
        }
        Json answer;
        return Request(req, answer);
    }

    CRet Txn(const std::string& client, const std::vector<WriteOp_t>& ops, bool force) override
    {
        Json list = Json::array();
        for (const auto& op : ops) {
            list.push_back({{"name", op.name}, {"instance", op.instance}, {"value", ParamToJson(op.value)}});
        }
        Json req = {{"op", "txn"}, {"client", client}, {"ops", list}};
        if (force) {
            req["force"] = true;
        }
        Json answer;
        return Request(req, answer);
    }

    CRet Subsystems(const std::vector<std::string>& types) override
    {
        Json req = {{"op", "subsystems"}, {"types", types}};
        Json answer;
        CRet ret = Request(req, answer);
        if (!ret.Success()) {
            return ret;
        }
        CParam present = ParamFromJson(answer.value("present", Json::object()));
        // None of the types present: a null value, as the receiver's SDK gives.
        return CRet::Ok(present.Length() == 0 ? CParam() : present);
    }

    void Watch(const std::string& name, const std::string& instance) override
    {
        Json answer;
        Request(Json{{"op", "subscribe"}, {"name", name}, {"instance", instance}}, answer);
    }

    void Unwatch(const std::string& name, const std::string& instance) override
    {
        Json answer;
        Request(Json{{"op", "unsubscribe"}, {"name", name}, {"instance", instance}}, answer);
    }

private:
    struct Pending_t {
        bool done = false;
        bool ok = false;
        std::string msg;
        Json answer;
    };

    // Sends a request and waits, at most the time-out, for its answer.
    CRet Request(Json req, Json& answer)
    {
        std::shared_ptr<Pending_t> pending = std::make_shared<Pending_t>();
        uint32_t id = 0;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            if (m_iFd < 0 && !m_bStop) {
                lock.unlock();
                TryConnect();
                lock.lock();
            }
            if (m_iFd < 0) {
                return CRet::Fail("controller " + m_strTarget + " is not reachable" +
                                  (m_strLastError.empty() ? "" : " (" + m_strLastError + ")"));
            }
            id = m_uNextId++;
            m_pending[id] = pending;
        }
        req["id"] = id;
        if (!SendLine(req.dump(-1, ' ', false, Json::error_handler_t::replace))) {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_pending.erase(id);
            return CRet::Fail("controller " + m_strTarget + ": connection lost while sending");
        }
        std::unique_lock<std::mutex> lock(m_mutex);
        bool answered = m_cv.wait_for(lock, std::chrono::milliseconds(m_iTimeoutMs),
                                      [&] { return pending->done || m_bStop; });
        m_pending.erase(id);
        if (!answered || !pending->done) {
            return CRet::Fail("controller " + m_strTarget + " did not answer within " +
                              std::to_string(m_iTimeoutMs) + " ms");
        }
        answer = pending->answer;
        return pending->ok ? CRet::Ok() : CRet::Fail(pending->msg);
    }

    bool SendLine(const std::string& line)
    {
        std::lock_guard<std::mutex> wlock(m_writeMutex);
        int fd;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            fd = m_iFd;
        }
        if (fd < 0) {
            return false;
        }
        std::string data = line + "\n";
        size_t sent = 0;
        while (sent < data.size()) {
            ssize_t n = send(fd, data.data() + sent, data.size() - sent, MSG_NOSIGNAL);
            if (n < 0 && errno == EINTR) {
                continue;
            }
            if (n <= 0) {
                return false;
            }
            sent += static_cast<size_t>(n);
        }
        return true;
    }

    // One connection attempt; on success the subscriptions are sent again.
    void TryConnect()
    {
        std::lock_guard<std::mutex> clock(m_connectMutex);
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (m_iFd >= 0 || m_bStop) {
                return;
            }
        }
        sockaddr_un addr;
        std::memset(&addr, 0, sizeof addr);
        addr.sun_family = AF_UNIX;
        if (m_strPath.size() >= sizeof addr.sun_path) {
            SetError("socket path too long");
            return;
        }
        std::memcpy(addr.sun_path, m_strPath.c_str(), m_strPath.size() + 1);
        int fd = socket(AF_UNIX, SOCK_STREAM, 0);
        if (fd < 0) {
            SetError(std::strerror(errno));
            return;
        }
        fcntl(fd, F_SETFD, FD_CLOEXEC);
        // A stuck server (full backlog, unread socket) must not hold a connect or a writer
        // past the time-out.
        timeval tv{};
        tv.tv_sec = m_iTimeoutMs / 1000;
        tv.tv_usec = (m_iTimeoutMs % 1000) * 1000;
        setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &tv, sizeof tv);
        if (connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0) {
            SetError(std::strerror(errno));
            close(fd);
            return;
        }
        {
            std::lock_guard<std::mutex> wlock(m_writeMutex);
            std::lock_guard<std::mutex> lock(m_mutex);
            m_iFd = fd;
            m_strLastError.clear();
        }
        m_cv.notify_all();
        // Restore the subscriptions; their answers are not waited for.
        for (const auto& p : m_events.Patterns()) {
            Json req = {{"id", 0}, {"op", "subscribe"}, {"name", p.first}, {"instance", p.second}};
            SendLine(req.dump());
        }
    }

    void SetError(const std::string& error)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_strLastError = error;
    }

    void Disconnect(int fd, const std::string& reason)
    {
        std::lock_guard<std::mutex> wlock(m_writeMutex);
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_iFd == fd) {
            close(fd);
            m_iFd = -1;
            m_strLastError = reason;
        }
        // Requests in flight will get no answer on this connection.
        for (auto& p : m_pending) {
            p.second->done = true;
            p.second->ok = false;
            p.second->msg = "controller " + m_strTarget + ": " + reason;
        }
        m_cv.notify_all();
    }

    void ReadLoop()
    {
        pthread_setname_np(pthread_self(), "zor-link");
        std::string buffer;
        while (true) {
            int fd;
            {
                std::unique_lock<std::mutex> lock(m_mutex);
                if (m_bStop) {
                    break;
                }
                fd = m_iFd;
            }
            if (fd < 0) {
                TryConnect();
                std::unique_lock<std::mutex> lock(m_mutex);
                if (m_iFd < 0) {
                    m_cv.wait_for(lock, std::chrono::milliseconds(kRetryMs),
                                  [this] { return m_bStop || m_iFd >= 0; });
                }
                buffer.clear();
                continue;
            }
            char buf[8192];
            ssize_t n = recv(fd, buf, sizeof buf, 0);
            if (n < 0 && errno == EINTR) {
                continue;
            }
            if (n <= 0) {
                Disconnect(fd, n == 0 ? "connection closed" : std::strerror(errno));
                buffer.clear();
                continue;
            }
            buffer.append(buf, static_cast<size_t>(n));
            size_t start = 0, nl;
            while ((nl = buffer.find('\n', start)) != std::string::npos) {
                HandleLine(buffer.substr(start, nl - start));
                start = nl + 1;
            }
            buffer.erase(0, start);
        }
        std::lock_guard<std::mutex> wlock(m_writeMutex);
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_iFd >= 0) {
            close(m_iFd);
            m_iFd = -1;
        }
    }

    void HandleLine(const std::string& line)
    {
        try {
            TakeLine(line);
        } catch (const std::exception&) {
            // A line of an unexpected shape from the server is dropped, not fatal.
        }
    }

    void TakeLine(const std::string& line)
    {
        Json msg = Json::parse(line, nullptr, false);
        if (!msg.is_object()) {
            return;  // not ours to answer; a bad line from the server is ignored
        }
        if (msg.contains("event")) {
            std::string name = msg.value("name", std::string());
            std::string inst = msg.value("instance", std::string());
            if (!name.empty() && msg.contains("value")) {
                m_events.Post(name, COid(inst), ParamFromJson(msg["value"]));
            }
            return;
        }
        auto id = msg.find("id");
        if (id == msg.end() || !id->is_number_unsigned()) {
            return;
        }
        std::lock_guard<std::mutex> lock(m_mutex);
        auto it = m_pending.find(id->get<uint32_t>());
        if (it == m_pending.end()) {
            return;
        }
        it->second->done = true;
        it->second->ok = msg.value("ok", false);
        it->second->msg = msg.value("msg", std::string(it->second->ok ? "" : "refused"));
        it->second->answer = msg;
        m_cv.notify_all();
    }

    const std::string m_strPath;
    const std::string m_strTarget;
    const int m_iTimeoutMs;

    std::mutex m_connectMutex;  // one connection attempt at a time
    std::mutex m_writeMutex;    // whole lines on the wire; taken before m_mutex
    std::mutex m_mutex;         // the state below
    std::condition_variable m_cv;
    int m_iFd = -1;
    bool m_bStop = false;
    std::string m_strLastError;
    uint32_t m_uNextId = 1;
    std::map<uint32_t, std::shared_ptr<Pending_t>> m_pending;
    std::thread m_reader;
};

}  // namespace

std::shared_ptr<ITransport> MakeUnixTransport(const std::string& path)
{
    return std::make_shared<CUnixTransport>(path);
}

}  // namespace Zor
