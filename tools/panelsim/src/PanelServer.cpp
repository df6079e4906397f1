#include "PanelServer.h"

#include <errno.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <time.h>
#include <unistd.h>

#include <cstring>

namespace Panelsim {

uint32_t NowMs()
{
    struct timespec now;
    if (clock_gettime(CLOCK_MONOTONIC, &now) != 0) {
        return 0;
    }
    return static_cast<uint32_t>(now.tv_sec) * 1000u + static_cast<uint32_t>(now.tv_nsec / 1000000);
}

namespace {

bool MakeAddress(const std::string& path, sockaddr_un& address)
{
    std::memset(&address, 0, sizeof address);
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) {
        return false;
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return true;
}

}  // namespace

CPanelServer::CPanelServer(const std::string& path)
    : m_strPath(path), m_iListen(-1), m_iClient(-1), m_uConnections(0), m_pWatcher(nullptr)
{
}

CPanelServer::~CPanelServer()
{
    Drop();
    if (m_iListen >= 0) {
        close(m_iListen);
        unlink(m_strPath.c_str());
    }
}

bool CPanelServer::Open(std::string& error)
{
    sockaddr_un address;
    if (!MakeAddress(m_strPath, address)) {
        error = "socket path \"" + m_strPath + "\" is empty or too long";
        return false;
    }
    struct stat info;
    if (lstat(m_strPath.c_str(), &info) == 0) {
        if (!S_ISSOCK(info.st_mode)) {
            error = m_strPath + " exists and is not a socket";
            return false;
        }
        // A socket file nobody answers on is left over from an earlier run.
        const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const bool live =
            probe >= 0 && connect(probe, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
        if (probe >= 0) {
            close(probe);
        }
        if (live) {
            error = "another program already listens on " + m_strPath;
            return false;
        }
        unlink(m_strPath.c_str());
    }
    m_iListen = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (m_iListen < 0 || bind(m_iListen, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(m_iListen, 4) != 0) {
        error = "cannot listen on " + m_strPath + ": " + std::strerror(errno);
        if (m_iListen >= 0) {
            close(m_iListen);
            m_iListen = -1;
        }
        return false;
    }
    return true;
}

void CPanelServer::Accept()
{
    const int client = accept4(m_iListen, nullptr, nullptr, SOCK_CLOEXEC);
    if (client < 0) {
        return;
    }
    // The daemon reconnected: the newest connection is the daemon.
    if (m_iClient >= 0) {
        Drop();
    }
    m_iClient = client;
    ++m_uConnections;
}

void CPanelServer::Drop()
{
    if (m_iClient >= 0) {
        close(m_iClient);
        m_iClient = -1;
        m_model.Disconnected();
    }
}

bool CPanelServer::Poll(int timeoutMs, int extraFd)
{
    pollfd fds[4];
    nfds_t count = 0;
    int listenIndex = -1, clientIndex = -1, extraIndex = -1;
    if (m_pWatcher != nullptr && m_pWatcher->WakeFd() >= 0) {
        fds[count++] = pollfd{m_pWatcher->WakeFd(), POLLIN, 0};
    }
    if (m_iListen >= 0) {
        listenIndex = static_cast<int>(count);
        fds[count++] = pollfd{m_iListen, POLLIN, 0};
    }
    if (m_iClient >= 0) {
        clientIndex = static_cast<int>(count);
        fds[count++] = pollfd{m_iClient, POLLIN, 0};
    }
    if (extraFd >= 0) {
        extraIndex = static_cast<int>(count);
        fds[count++] = pollfd{extraFd, POLLIN, 0};
    }
    const int ready = poll(fds, count, timeoutMs < 0 ? 0 : timeoutMs);
    if (ready <= 0) {
        return false;
    }
    if (clientIndex >= 0 && fds[clientIndex].revents != 0) {
        // Drain what is there, so a busy daemon never waits on a full socket.
        for (int chunk = 0; chunk < 64 && m_iClient >= 0; ++chunk) {
            unsigned char buffer[1024];
            const ssize_t got = recv(m_iClient, buffer, sizeof buffer, MSG_DONTWAIT);
            if (got > 0) {
                m_model.Feed(buffer, static_cast<size_t>(got));
                continue;
            }
            if (got == 0 || (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR)) {
                Drop();
            }
            break;
        }
    }
    if (listenIndex >= 0 && (fds[listenIndex].revents & POLLIN)) {
        Accept();
    }
    if (m_pWatcher != nullptr) {
        m_pWatcher->Serve(*this);
    }
    return extraIndex >= 0 && fds[extraIndex].revents != 0;
}

bool CPanelServer::Send(const std::string& bytes)
{
    if (m_iClient < 0) {
        return false;
    }
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t sent = send(m_iClient, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) {
            continue;
        }
        if (sent <= 0) {
            Drop();
            return false;
        }
        done += static_cast<size_t>(sent);
    }
    return true;
}

}  // namespace Panelsim
