#include "UnitdLink.h"

#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace MenusTest {

namespace {

long long NowMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::string Folder(const std::string& path)
{
    size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash);
}

int ConnectUnix(const std::string& path)
{
    struct sockaddr_un addr = {};
    addr.sun_family = AF_UNIX;
    if (path.size() >= sizeof addr.sun_path)
        return -1;
    std::strcpy(addr.sun_path, path.c_str());
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd >= 0 && connect(fd, reinterpret_cast<struct sockaddr*>(&addr), sizeof addr) != 0) {
        close(fd);
        fd = -1;
    }
    return fd;
}

nlohmann::json Failure(const std::string& msg)
{
    return {{"ok", false}, {"msg", msg}};
}

}  // namespace

CUnitd::CUnitd() : m_pid(-1), m_iFd(-1), m_iNextId(1) {}

CUnitd::~CUnitd()
{
    if (m_iFd >= 0)
        close(m_iFd);
    if (m_pid > 0) {
        kill(m_pid, SIGTERM);
        int status = 0;
        waitpid(m_pid, &status, 0);
    }
    if (!m_strSocket.empty())
        unlink(m_strSocket.c_str());
    if (!m_strDir.empty())
        rmdir(m_strDir.c_str());
}

std::string CUnitd::ProgramPath()
{
    const char* pEnv = std::getenv("FP_UNITD");
    if (pEnv != nullptr && *pEnv != '\0')
        return pEnv;
    // This program lives in <build>/controller/frontpanel, unitd in <build>/unit.
    char exe[4096];
    ssize_t n = readlink("/proc/self/exe", exe, sizeof exe - 1);
    if (n <= 0)
        return std::string();
    exe[n] = '\0';
    std::string path = Folder(Folder(Folder(exe))) + "/unit/unitd";
    return access(path.c_str(), X_OK) == 0 ? path : std::string();
}

std::string CUnitd::UnitPath(const std::string& name)
{
    // This file is <source>/controller/frontpanel/Menus/tests/UnitdLink.cpp.
    std::string source = Folder(Folder(Folder(Folder(Folder(__FILE__)))));
    return source + "/unit/units/" + name;
}

bool CUnitd::Start(const std::string& unitFile, std::string* error)
{
    std::string program = ProgramPath();
    if (program.empty()) {
        *error = "unitd is not built";
        return false;
    }
    char dir[] = "/tmp/fp-menus-XXXXXX";
    if (mkdtemp(dir) == nullptr) {
        *error = std::string("mkdtemp: ") + std::strerror(errno);
        return false;
    }
    m_strDir = dir;
    m_strSocket = m_strDir + "/unitd.socket";
    std::string unit = UnitPath(unitFile);
    std::vector<std::string> args = {program, "--unit", unit, "--socket", m_strSocket};
    std::vector<char*> argv;
    for (std::string& arg : args)
        argv.push_back(&arg[0]);
    argv.push_back(nullptr);
    m_pid = fork();
    if (m_pid < 0) {
        *error = std::string("fork: ") + std::strerror(errno);
        return false;
    }
    if (m_pid == 0) {
        execv(argv[0], argv.data());
        _exit(127);
    }
    long long deadline = NowMs() + 20000;
    while (NowMs() < deadline) {
        int status = 0;
        if (waitpid(m_pid, &status, WNOHANG) == m_pid) {
            m_pid = -1;
            *error = "unitd ended at start";
            return false;
        }
        m_iFd = ConnectUnix(m_strSocket);
        if (m_iFd >= 0)
            return true;
        usleep(20000);
    }
    *error = "unitd did not open " + m_strSocket;
    return false;
}

bool CUnitd::ReadLine(std::string* pLine, long long deadlineMs)
{
    for (;;) {
        size_t nl = m_pending.find('\n');
        if (nl != std::string::npos) {
            *pLine = m_pending.substr(0, nl);
            m_pending.erase(0, nl + 1);
            return true;
        }
        long long left = deadlineMs - NowMs();
        if (left <= 0)
            return false;
        struct pollfd p = {m_iFd, POLLIN, 0};
        if (poll(&p, 1, static_cast<int>(left)) <= 0)
            continue;
        char buf[4096];
        ssize_t n = read(m_iFd, buf, sizeof buf);
        if (n <= 0)
            return false;
        m_pending.append(buf, static_cast<size_t>(n));
    }
}

nlohmann::json CUnitd::Request(nlohmann::json request, int timeoutMs)
{
    if (m_iFd < 0)
        return Failure("not connected");
    int id = m_iNextId++;
    request["id"] = id;
    std::string text = request.dump() + "\n";
    if (send(m_iFd, text.data(), text.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(text.size()))
        return Failure("send failed");
    long long deadline = NowMs() + timeoutMs;
    std::string line;
    while (ReadLine(&line, deadline)) {
        nlohmann::json answer = nlohmann::json::parse(line, nullptr, false);
        if (answer.is_object() && answer.contains("id") && answer["id"] == id)
            return answer;
    }
    return Failure("no answer to " + request.dump());
}

nlohmann::json CUnitd::Set(const std::string& name, const std::string& instance, const nlohmann::json& value,
                           bool force)
{
    nlohmann::json request = {
        {"op", "set"}, {"client", "test"}, {"name", name}, {"instance", instance}, {"value", value}};
    if (force)
        request["force"] = true;
    return Request(request);
}

nlohmann::json CUnitd::WritesOf(const std::string& name, int since)
{
    nlohmann::json answer = Request({{"op", "writes"}, {"since", since}});
    nlohmann::json found = nlohmann::json::array();
    if (answer.contains("writes"))
        for (const auto& write : answer["writes"])
            if (write.value("name", "") == name)
                found.push_back(write);
    return found;
}

int CUnitd::NextWrite()
{
    nlohmann::json answer = Request({{"op", "writes"}, {"since", 0}});
    return answer.value("next", 0);
}

}  // namespace MenusTest
