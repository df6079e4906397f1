#include "Controller.h"

#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "Paths.h"
#include "UnixSocket.h"

namespace e2e {

namespace {

nlohmann::json Failure(const std::string& msg)
{
    return {{"ok", false}, {"msg", msg}};
}

std::string UnitFilePath(const std::string& unitFile)
{
    return unitFile.find('/') == std::string::npos ? std::string(kUnitsDir) + "/" + unitFile : unitFile;
}

}  // namespace

CUnitServer::CUnitServer(const std::string& unitFile, const std::string& socketPath)
    : m_strUnit(UnitFilePath(unitFile)), m_strSocket(socketPath)
{
}

CUnitServer::CUnitServer(const std::string& unitFile) : m_strUnit(UnitFilePath(unitFile))
{
    char dir[] = "/tmp/fp-unitd.XXXXXX";
    if (mkdtemp(dir) != nullptr) {
        m_strOwnDir = dir;
        m_strSocket = m_strOwnDir + "/unitd.sock";
    } else {
        // The socket path stays empty and Start says why.
        m_strDirError = std::string("no folder for unitd's socket: ") + std::strerror(errno);
    }
}

CUnitServer::~CUnitServer()
{
    // An orderly stop, so a unitd built for coverage writes its counts (a killed one would
    // not); the child's own destructor kills it if it did not stop.
    if (m_pProcess && !m_pProcess->HasExited())
        Stop();
    m_pProcess.reset();  // unitd first: it holds the socket
    if (!m_strOwnDir.empty()) {
        std::error_code ec;
        std::filesystem::remove_all(m_strOwnDir, ec);
    }
}

bool CUnitServer::Start(std::string* error)
{
    if (std::string(kUnitdPath).empty()) {
        *error = "unitd is not built";
        return false;
    }
    if (m_strSocket.empty()) {
        *error = m_strDirError;
        return false;
    }
    m_pProcess.reset(new CChildProcess({kUnitdPath, "--unit", m_strUnit, "--socket", m_strSocket}));
    if (!m_pProcess->Start(error))
        return false;
    long long deadline = NowMs() + 20000;
    while (NowMs() < deadline) {
        if (m_pProcess->HasExited()) {
            *error = "unitd ended at start: " + m_pProcess->Describe();
            return false;
        }
        m_pLink.reset(new CLineClient(m_strSocket));
        if (m_pLink->Connected())
            return true;
        usleep(20000);
    }
    *error = "unitd did not open " + m_strSocket + ": " + m_pProcess->Describe();
    return false;
}

int CUnitServer::Stop()
{
    if (!m_pProcess)
        return -1;
    m_pLink.reset();
    m_pProcess->Signal(SIGTERM);
    return m_pProcess->WaitExit(20000) ? m_pProcess->ExitCode() : -1;
}

nlohmann::json CUnitServer::Request(nlohmann::json request)
{
    request["id"] = m_iNextId++;
    nlohmann::json answer =
        nlohmann::json::parse(m_pLink ? m_pLink->Ask(request.dump(), 10000) : std::string(), nullptr, false);
    return answer.is_object() ? answer : Failure("no answer to " + request.dump());
}

nlohmann::json CUnitServer::Set(const std::string& name, const std::string& instance,
                                const nlohmann::json& value, bool force)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    nlohmann::json request = {
        {"op", "set"}, {"client", "e2e"}, {"name", name}, {"instance", instance}, {"value", value}};
    if (force)
        request["force"] = true;
    return Request(request);
}

nlohmann::json CUnitServer::Get(const std::string& key)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    nlohmann::json answer = Request({{"op", "get"}, {"keys", {key}}});
    if (!answer.value("ok", false) || !answer.contains("values"))
        return nullptr;
    // {"values": {"name": {".0": value}}}: the one value there is.
    for (auto& byName : answer["values"])
        for (auto& value : byName)
            return value;
    return nullptr;
}

nlohmann::json CUnitServer::Writes(int since)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return Request({{"op", "writes"}, {"since", since}});
}

nlohmann::json CUnitServer::WritesOf(const std::string& name, int since)
{
    nlohmann::json answer = Writes(since);
    nlohmann::json found = nlohmann::json::array();
    if (answer.contains("writes"))
        for (const auto& write : answer["writes"])
            if (write.value("name", "") == name)
                found.push_back(write);
    return found;
}

int CUnitServer::NextWrite()
{
    return Writes(0).value("next", 0);
}

std::vector<std::string> CUnitServer::ValuesWrittenBy(const std::string& client, const std::string& name)
{
    std::vector<std::string> values;
    for (const auto& write : WritesOf(name))
        if (write.value("client", "") == client)
            values.push_back(write["value"].is_string() ? write["value"].get<std::string>()
                                                        : write["value"].dump());
    return values;
}

// --- CControllerTap

struct CControllerTap::Pair {
    int down = -1;     // the daemon's connection
    int up = -1;       // to unitd
    std::string line;  // partial request line from the daemon
};

CControllerTap::CControllerTap(const std::string& path, const std::string& upstream)
    : m_strPath(path), m_strUpstream(upstream), m_iListenFd(-1), m_bStop(false)
{
}

CControllerTap::~CControllerTap()
{
    m_bStop = true;
    if (m_thread.joinable())
        m_thread.join();
    for (auto& p : m_pairs) {
        if (p->down >= 0)
            close(p->down);
        if (p->up >= 0)
            close(p->up);
    }
    if (m_iListenFd >= 0) {
        close(m_iListenFd);
        unlink(m_strPath.c_str());
    }
}

bool CControllerTap::Start(std::string* error)
{
    m_iListenFd = ListenUnix(m_strPath, 8, "controller tap", error);
    if (m_iListenFd < 0)
        return false;
    m_thread = std::thread(&CControllerTap::Run, this);
    return true;
}

void CControllerTap::Run()
{
    while (!m_bStop) {
        std::vector<struct pollfd> fds;
        fds.push_back({m_iListenFd, POLLIN, 0});
        for (auto& p : m_pairs) {
            fds.push_back({p->down, POLLIN, 0});
            fds.push_back({p->up, POLLIN, 0});
        }
        if (poll(fds.data(), fds.size(), 50) <= 0)
            continue;
        if (fds[0].revents & POLLIN) {
            int down = accept4(m_iListenFd, nullptr, nullptr, SOCK_CLOEXEC);
            if (down >= 0) {
                std::unique_ptr<Pair> p(new Pair);
                p->down = down;
                p->up = ConnectUnix(m_strUpstream);
                if (p->up < 0)
                    close(down);  // as if unitd were not there: the client retries
                else
                    m_pairs.push_back(std::move(p));
            }
            continue;  // the pair list changed under the poll set
        }
        for (size_t i = 0; i < m_pairs.size(); ++i) {
            Pair& p = *m_pairs[i];
            bool closed = false;
            for (int side = 0; side < 2; ++side) {
                if (fds[1 + 2 * i + side].revents == 0)
                    continue;
                int from = side == 0 ? p.down : p.up;
                int to = side == 0 ? p.up : p.down;
                char buf[4096];
                ssize_t n = read(from, buf, sizeof buf);
                if (n <= 0) {
                    closed = true;
                    break;
                }
                if (side == 0) {
                    // Recorded before it is passed on, so a request is on record before
                    // anything its answer causes.
                    p.line.append(buf, static_cast<size_t>(n));
                    size_t nl;
                    while ((nl = p.line.find('\n')) != std::string::npos) {
                        nlohmann::json j = nlohmann::json::parse(p.line.substr(0, nl), nullptr, false);
                        p.line.erase(0, nl + 1);
                        std::lock_guard<std::mutex> lock(m_mutex);
                        m_requests.push_back({NowMs(), j});
                    }
                }
                if (!SendAll(to, std::string(buf, static_cast<size_t>(n)))) {
                    closed = true;
                    break;
                }
            }
            if (closed) {
                close(p.down);
                close(p.up);
                p.down = p.up = -1;
            }
        }
        for (size_t i = m_pairs.size(); i-- > 0;) {
            if (m_pairs[i]->down < 0)
                m_pairs.erase(m_pairs.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
}

std::vector<CControllerTap::Request> CControllerTap::Requests()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_requests;
}

std::vector<CControllerTap::Request> CControllerTap::Find(const std::string& op, const std::string& object)
{
    std::vector<Request> found;
    for (const Request& r : Requests()) {
        const nlohmann::json& j = r.json;
        if (!j.is_object() || (!op.empty() && j.value("op", "") != op))
            continue;
        bool names = j.value("name", "") == object;
        for (const char* list : {"keys", "types"}) {
            if (j.contains(list) && j[list].is_array()) {
                for (const auto& k : j[list]) {
                    std::string key = k.is_string() ? k.get<std::string>() : "";
                    names = names || key == object || key.rfind(object + ".", 0) == 0;
                }
            }
        }
        if (names)
            found.push_back(r);
    }
    return found;
}

}  // namespace e2e
