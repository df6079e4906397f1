#include "UnixSocket.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace e2e {

namespace {

bool Address(const std::string& path, struct sockaddr_un* addr)
{
    *addr = {};
    addr->sun_family = AF_UNIX;
    if (path.size() >= sizeof addr->sun_path)
        return false;
    std::strcpy(addr->sun_path, path.c_str());
    return true;
}

}  // namespace

int ConnectUnix(const std::string& path)
{
    struct sockaddr_un addr;
    if (!Address(path, &addr))
        return -1;
    int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd >= 0 && connect(fd, reinterpret_cast<struct sockaddr*>(&addr), sizeof addr) != 0) {
        close(fd);
        fd = -1;
    }
    return fd;
}

int ListenUnix(const std::string& path, int backlog, const std::string& what, std::string* error)
{
    struct sockaddr_un addr;
    if (!Address(path, &addr)) {
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

bool SendAll(int fd, const std::string& bytes)
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
