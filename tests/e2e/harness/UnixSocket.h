// Local stream sockets as the harness's fakes use them: the panel end and the controller tap
// listen, the controller link and the tap's upstream connect.
#pragma once

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace e2e {

// The address of a socket file; false when the path does not fit.
inline bool UnixAddress(const std::string& path, struct sockaddr_un* addr)
{
    *addr = {};
    addr->sun_family = AF_UNIX;
    if (path.size() >= sizeof addr->sun_path)
        return false;
    std::strcpy(addr->sun_path, path.c_str());
    return true;
}

// A connected socket to `path`, or -1.
inline int ConnectUnix(const std::string& path)
{
    struct sockaddr_un addr;
    if (!UnixAddress(path, &addr))
        return -1;
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd >= 0 && connect(fd, reinterpret_cast<struct sockaddr*>(&addr), sizeof addr) != 0) {
        close(fd);
        fd = -1;
    }
    return fd;
}

// A socket listening on `path` (a stale file there is removed first), or -1 with the reason
// in *error; `what` names the listener in that reason.
inline int ListenUnix(const std::string& path, int backlog, const std::string& what, std::string* error)
{
    struct sockaddr_un addr;
    if (!UnixAddress(path, &addr)) {
        *error = "socket path too long: " + path;
        return -1;
    }
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    unlink(path.c_str());
    if (fd < 0 || bind(fd, reinterpret_cast<struct sockaddr*>(&addr), sizeof addr) != 0 ||
        listen(fd, backlog) != 0) {
        *error = what + " on " + path + ": " + std::strerror(errno);
        if (fd >= 0)
            close(fd);
        return -1;
    }
    return fd;
}

// Sends all of `bytes` (retrying after signals); false when the peer is gone.
inline bool SendAll(int fd, const std::string& bytes)
{
    size_t done = 0;
    while (done < bytes.size()) {
        ssize_t n = send(fd, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<size_t>(n);
    }
    return true;
}

}  // namespace e2e
