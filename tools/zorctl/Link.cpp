#include "Link.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>

using Zor::Json;

CLink::CLink(const std::string& path, int timeoutMs)
    : m_strPath(path), m_iTimeoutMs(timeoutMs), m_fd(-1), m_uNextId(1)
{
}

CLink::~CLink()
{
    if (m_fd >= 0) {
        close(m_fd);
    }
}

bool CLink::Connect(std::string& error)
{
    sockaddr_un addr;
    std::memset(&addr, 0, sizeof addr);
    addr.sun_family = AF_UNIX;
    if (m_strPath.empty() || m_strPath.size() >= sizeof addr.sun_path) {
        error = "bad socket path \"" + m_strPath + "\"";
        return false;
    }
    std::memcpy(addr.sun_path, m_strPath.c_str(), m_strPath.size() + 1);
    m_fd = socket(AF_UNIX, SOCK_STREAM, 0);
    timeval tv{};
    tv.tv_sec = m_iTimeoutMs / 1000;
    tv.tv_usec = (m_iTimeoutMs % 1000) * 1000;
    if (m_fd >= 0) {
        setsockopt(m_fd, SOL_SOCKET, SO_SNDTIMEO, &tv, sizeof tv);  // bounds connect and send
    }
    if (m_fd < 0 || connect(m_fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0) {
        error = "cannot reach unitd at " + m_strPath + ": " + std::strerror(errno);
        return false;
    }
    return true;
}

bool CLink::ReadLine(std::string& line, int timeoutMs, bool& closed)
{
    closed = false;
    auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (true) {
        size_t nl = m_buffer.find('\n');
        if (nl != std::string::npos) {
            line = m_buffer.substr(0, nl);
            m_buffer.erase(0, nl + 1);
            return true;
        }
        int wait = -1;
        if (timeoutMs >= 0) {
            auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
            wait = left.count() > 0 ? static_cast<int>(left.count()) : 0;
        }
        pollfd p{m_fd, POLLIN, 0};
        int r = poll(&p, 1, wait);
        if (r < 0 && errno == EINTR) {
            return false;  // a signal: let the caller look at it
        }
        if (r <= 0) {
            return false;
        }
        char buf[8192];
        ssize_t n = read(m_fd, buf, sizeof buf);
        if (n <= 0) {
            closed = true;
            return false;
        }
        m_buffer.append(buf, static_cast<size_t>(n));
    }
}

bool CLink::Ask(Json request, Json& answer, std::string& error)
{
    unsigned id = m_uNextId++;
    request["id"] = id;
    std::string text = request.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
    if (send(m_fd, text.data(), text.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(text.size())) {
        error = "lost the connection to unitd";
        return false;
    }
    auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_iTimeoutMs);
    while (true) {
        auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        std::string line;
        bool closed = false;
        if (left.count() <= 0 || !ReadLine(line, static_cast<int>(left.count()), closed)) {
            error = closed ? "unitd closed the connection" : "unitd did not answer in time";
            return false;
        }
        Json msg = Json::parse(line, nullptr, false);
        if (!msg.is_object()) {
            continue;
        }
        if (msg.contains("event")) {
            m_events.push_back(msg);
        } else if (msg.value("id", 0u) == id) {
            answer = msg;
            return true;
        }
    }
}

bool CLink::NextEvent(Json& event, int timeoutMs, bool& closed)
{
    closed = false;
    while (m_events.empty()) {
        std::string line;
        if (!ReadLine(line, timeoutMs, closed)) {
            return false;
        }
        Json msg = Json::parse(line, nullptr, false);
        if (msg.is_object() && msg.contains("event")) {
            m_events.push_back(msg);
        }
    }
    event = m_events.front();
    m_events.pop_front();
    return true;
}
