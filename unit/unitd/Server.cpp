#include "Server.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace Unit {

namespace {

const size_t kMaxLine = 1 << 20;       // a longer request line closes the connection
const size_t kMaxBacklog = 16u << 20;  // a client this far behind is dropped

bool FillAddress(const std::string& path, sockaddr_un& addr)
{
    std::memset(&addr, 0, sizeof addr);
    addr.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof addr.sun_path) {
        return false;
    }
    std::memcpy(addr.sun_path, path.c_str(), path.size() + 1);
    return true;
}

void SetNonBlocking(int fd)
{
    int flags = fcntl(fd, F_GETFL, 0);
    fcntl(fd, F_SETFL, flags | O_NONBLOCK);
    fcntl(fd, F_SETFD, FD_CLOEXEC);
}

}  // namespace

CUnitServer::CUnitServer(std::shared_ptr<CVirtualUnit> unit)
    : m_pUnit(std::move(unit)), m_iListener(-1), m_iListenerId(0), m_wake{-1, -1}, m_bStop(false)
{
    if (pipe(m_wake) == 0) {
        SetNonBlocking(m_wake[0]);
        SetNonBlocking(m_wake[1]);
    }
    // Called with the unit's lock held, on any thread: queue and wake the server thread.
    m_iListenerId = m_pUnit->AddListener([this](const Change_t& change) {
        {
            std::lock_guard<std::mutex> lock(m_eventMutex);
            m_events.push_back(change);
        }
        Wake();
    });
}

CUnitServer::~CUnitServer()
{
    m_pUnit->RemoveListener(m_iListenerId);
    for (const auto& c : m_clients) {
        close(c.first);
    }
    if (m_iListener >= 0) {
        close(m_iListener);
        unlink(m_strPath.c_str());
    }
    close(m_wake[0]);
    close(m_wake[1]);
}

bool CUnitServer::Listen(const std::string& path, std::string& error)
{
    sockaddr_un addr;
    if (!FillAddress(path, addr)) {
        error = "socket path \"" + path + "\" is empty or too long";
        return false;
    }
    int fd = socket(AF_UNIX, SOCK_STREAM, 0);
    if (fd < 0) {
        error = std::string("socket: ") + std::strerror(errno);
        return false;
    }
    if (bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0) {
        if (errno != EADDRINUSE) {
            error = "bind " + path + ": " + std::strerror(errno);
            close(fd);
            return false;
        }
        // A socket file is there: refuse a live server, replace a stale file.
        int probe = socket(AF_UNIX, SOCK_STREAM, 0);
        bool live = probe >= 0 && connect(probe, reinterpret_cast<sockaddr*>(&addr), sizeof addr) == 0;
        if (probe >= 0) {
            close(probe);
        }
        if (live) {
            close(fd);
            error = "another server is already listening on " + path;
            return false;
        }
        unlink(path.c_str());
        if (bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0) {
            error = "bind " + path + ": " + std::strerror(errno);
            close(fd);
            return false;
        }
    }
    if (listen(fd, 16) != 0) {
        error = "listen " + path + ": " + std::strerror(errno);
        close(fd);
        return false;
    }
    SetNonBlocking(fd);
    m_iListener = fd;
    m_strPath = path;
    return true;
}

void CUnitServer::Wake()
{
    char byte = 1;
    ssize_t n = write(m_wake[1], &byte, 1);  // a full pipe already means "wake up"
    (void)n;
}

void CUnitServer::Stop()
{
    m_bStop = true;
    Wake();
}

int CUnitServer::Run()
{
    while (!m_bStop) {
        std::vector<pollfd> fds;
        fds.push_back(pollfd{m_wake[0], POLLIN, 0});
        fds.push_back(pollfd{m_iListener, POLLIN, 0});
        for (const auto& c : m_clients) {
            short events = POLLIN;
            if (!c.second->out.empty()) {
                events |= POLLOUT;
            }
            fds.push_back(pollfd{c.first, events, 0});
        }
        if (poll(fds.data(), fds.size(), -1) < 0) {
            if (errno == EINTR) {
                continue;
            }
            return 1;
        }
        if (fds[0].revents != 0) {
            char buf[256];
            while (read(m_wake[0], buf, sizeof buf) > 0) {
            }
        }
        DeliverEvents();
        if (fds[1].revents & POLLIN) {
            Accept();
        }
        for (size_t i = 2; i < fds.size(); ++i) {
            int fd = fds[i].fd;
            auto it = m_clients.find(fd);
            if (it == m_clients.end()) {
                continue;
            }
            bool keep = true;
            if (fds[i].revents & (POLLIN | POLLHUP | POLLERR)) {
                keep = ReadFrom(fd, *it->second);
            }
            if (keep && (fds[i].revents & POLLOUT)) {
                keep = Flush(fd, *it->second);
            }
            if (!keep) {
                // A client that goes loses its subscriptions and nothing else.
                close(fd);
                m_clients.erase(it);
            }
        }
    }
    return 0;
}

void CUnitServer::Accept()
{
    while (true) {
        int fd = accept(m_iListener, nullptr, nullptr);
        if (fd < 0) {
            return;
        }
        SetNonBlocking(fd);
        m_clients[fd].reset(new Client_t(m_pUnit));
    }
}

bool CUnitServer::ReadFrom(int fd, Client_t& client)
{
    char buf[8192];
    while (true) {
        ssize_t n = read(fd, buf, sizeof buf);
        if (n == 0) {
            return false;
        }
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            if (errno != EAGAIN && errno != EWOULDBLOCK) {
                return false;
            }
            break;
        }
        client.in.append(buf, static_cast<size_t>(n));
        size_t start = 0;
        size_t nl;
        while ((nl = client.in.find('\n', start)) != std::string::npos) {
            std::string line = client.in.substr(start, nl - start);
            start = nl + 1;
            if (!line.empty() && line.back() == '\r') {
                line.pop_back();
            }
            if (line.find_first_not_of(" \t") == std::string::npos) {
                continue;
            }
            std::string answer = client.session.Handle(line);
            // Events caused by this request go out before its answer.
            DeliverEvents();
            client.out += answer + "\n";
        }
        client.in.erase(0, start);
        if (client.in.size() > kMaxLine) {
            client.out += "{\"ok\":false,\"msg\":\"request line too long\"}\n";
            Flush(fd, client);
            return false;
        }
    }
    return Flush(fd, client);
}

bool CUnitServer::Flush(int fd, Client_t& client)
{
    while (!client.out.empty()) {
        ssize_t n = send(fd, client.out.data(), client.out.size(), MSG_NOSIGNAL);
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            if (errno == EAGAIN || errno == EWOULDBLOCK) {
                return client.out.size() <= kMaxBacklog;
            }
            return false;
        }
        client.out.erase(0, static_cast<size_t>(n));
    }
    return true;
}

void CUnitServer::DeliverEvents()
{
    std::deque<Change_t> events;
    {
        std::lock_guard<std::mutex> lock(m_eventMutex);
        events.swap(m_events);
    }
    for (const auto& change : events) {
        for (auto& c : m_clients) {
            std::string line;
            if (c.second->session.EventLine(change, line)) {
                c.second->out += line + "\n";
            }
        }
    }
    // Written out by the poll loop; a client this far behind is dropped there.
}

}  // namespace Unit
