#include "Controller.h"

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "Paths.h"
#include "UnixSocket.h"

namespace e2e {

namespace {

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
    if (mkdtemp(dir) != nullptr) {  // else the socket path stays empty and Start says so
        m_strOwnDir = dir;
        m_strSocket = m_strOwnDir + "/unitd.sock";
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
    if (m_strSocket.empty()) {
        *error = "no folder for unitd's socket";
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
    std::lock_guard<std::mutex> lock(m_mutex);
    request["id"] = m_iNextId++;
    nlohmann::json answer =
        nlohmann::json::parse(m_pLink ? m_pLink->Ask(request.dump(), 10000) : std::string(), nullptr, false);
    return answer.is_object() ? answer
                              : nlohmann::json{{"ok", false}, {"msg", "no answer to " + request.dump()}};
}

nlohmann::json CUnitServer::Set(const std::string& name, const std::string& instance,
                                const nlohmann::json& value, bool force)
{
    nlohmann::json request = {
        {"op", "set"}, {"client", "e2e"}, {"name", name}, {"instance", instance}, {"value", value}};
    request["force"] = force;
    return Request(request);
}

nlohmann::json CUnitServer::Get(const std::string& key)
{
    nlohmann::json answer = Request({{"op", "get"}, {"keys", {key}}});
    // {"values": {"name": {".0": value}}}: the one value there is.
    for (auto& byName : answer.value("values", nlohmann::json::object()))
        for (auto& value : byName)
            return value;
    return nullptr;
}

nlohmann::json CUnitServer::Writes(int since)
{
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

CControllerTap::CControllerTap(const std::string& path, const std::string& upstream)
    : m_strPath(path), m_strUpstream(upstream)
{
}

CControllerTap::~CControllerTap()
{
    // Shutting a socket down wakes the thread blocked on it.
    if (m_iListenFd >= 0)
        shutdown(m_iListenFd, SHUT_RDWR);
    if (m_acceptor.joinable())
        m_acceptor.join();
    for (int fd : m_fds)
        shutdown(fd, SHUT_RDWR);
    for (std::thread& relay : m_relays)
        relay.join();
    for (int fd : m_fds)
        close(fd);
    if (m_iListenFd >= 0) {
        close(m_iListenFd);
        unlink(m_strPath.c_str());
    }
}

bool CControllerTap::Start(std::string* error)
{
    m_iListenFd = ListenUnix(m_strPath, 8, "controller tap", error);
    if (m_iListenFd >= 0)
        m_acceptor = std::thread(&CControllerTap::Accept, this);
    return m_iListenFd >= 0;
}

void CControllerTap::Accept()
{
    int down;
    while ((down = accept4(m_iListenFd, nullptr, nullptr, SOCK_CLOEXEC)) >= 0) {
        const int up = ConnectUnix(m_strUpstream);
        if (up < 0) {
            close(down);  // as if unitd were not there: the client retries
            continue;
        }
        m_fds.insert(m_fds.end(), {down, up});
        m_relays.emplace_back(&CControllerTap::Relay, this, down, up, true);
        m_relays.emplace_back(&CControllerTap::Relay, this, up, down, false);
    }
}

void CControllerTap::Relay(int from, int to, bool record)
{
    std::string line;  // partial request line from the daemon
    char buf[4096];
    ssize_t n;
    while ((n = read(from, buf, sizeof buf)) > 0) {
        // Recorded before it is passed on, so a request is on record before anything its
        // answer causes.
        if (record)
            line.append(buf, static_cast<size_t>(n));
        for (size_t nl; (nl = line.find('\n')) != std::string::npos; line.erase(0, nl + 1)) {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_requests.push_back({NowMs(), nlohmann::json::parse(line.substr(0, nl), nullptr, false)});
        }
        if (!SendAll(to, std::string(buf, static_cast<size_t>(n))))
            break;
    }
    // One side gone: the other one is ended too, which also ends the relay the other way.
    shutdown(from, SHUT_RDWR);
    shutdown(to, SHUT_RDWR);
}

std::vector<CControllerTap::Request> CControllerTap::Find(const std::string& op, const std::string& object)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<Request> found;
    for (const Request& r : m_requests) {
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
