#include "Qb/Socket.h"

#include <errno.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>

namespace Qb {

namespace {

// Reconnection attempts are at least this far apart.
const uint32 kRetryMs = 1000;
// A peer that takes no data for this long is treated as gone; the rest of a message
// cannot be sent later without corrupting the stream.
const int kSendTimeoutMs = 2000;

// Milliseconds left until deadline, never negative.
int Remaining(uint32 deadline)
{
    const int32 left = static_cast<int32>(deadline - TickMs());
    return left > 0 ? left : 0;
}

}  // namespace

// Owns one descriptor; it is closed when the last user lets go, so a Read in progress on
// one thread never finds its descriptor number reused by a reconnect on another.
class CStreamSocket::CFd {
public:
    explicit CFd(int fd) : m_iFd(fd) {}
    ~CFd() { ::close(m_iFd); }
    CFd(const CFd&) = delete;
    CFd& operator=(const CFd&) = delete;
    int Get() const { return m_iFd; }

private:
    int m_iFd;
};

CStreamSocket::CStreamSocket(const CLocalSocketAddress& address)
    : m_strPath(address.Path()), m_uLastAttempt(0), m_uConnects(0), m_bAttempted(false), m_bClosed(false)
{
    Connection(true);
}

CStreamSocket::~CStreamSocket()
{
    Close();
}

CStreamSocket::FdPtr CStreamSocket::Connection(bool mayReconnect)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_bClosed)
        return FdPtr();
    if (m_pFd || !mayReconnect)
        return m_pFd;
    const uint32 now = TickMs();
    if (m_bAttempted && now - m_uLastAttempt < kRetryMs)
        return FdPtr();
    m_bAttempted = true;
    m_uLastAttempt = now;

    sockaddr_un addr;
    std::memset(&addr, 0, sizeof addr);
    addr.sun_family = AF_UNIX;
    if (m_strPath.empty() || m_strPath.size() >= sizeof addr.sun_path)
        return FdPtr();
    std::memcpy(addr.sun_path, m_strPath.c_str(), m_strPath.size());

    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return FdPtr();
    FdPtr conn = std::make_shared<CFd>(fd);
    timeval tv;
    tv.tv_sec = kSendTimeoutMs / 1000;
    tv.tv_usec = (kSendTimeoutMs % 1000) * 1000;
    ::setsockopt(fd, SOL_SOCKET, SO_SNDTIMEO, &tv, sizeof tv);
    // A local connect completes or fails at once; it never waits for the peer's accept.
    int rc;
    do {
        rc = ::connect(fd, reinterpret_cast<const sockaddr*>(&addr), sizeof addr);
    } while (rc != 0 && errno == EINTR);
    if (rc != 0)
        return FdPtr();
    m_pFd = conn;
    ++m_uConnects;
    lock.unlock();
    m_cond.notify_all();
    return conn;
}

void CStreamSocket::Drop(const FdPtr& fd)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_pFd == fd)
        m_pFd.reset();
    // Wakes a reader still polling this descriptor on another thread.
    ::shutdown(fd->Get(), SHUT_RDWR);
}

CStreamSocket::FdPtr CStreamSocket::WaitForConnection(int timeoutMs)
{
    const uint32 deadline = TickMs() + static_cast<uint32>(timeoutMs < 0 ? 0 : timeoutMs);
    for (;;) {
        FdPtr conn = Connection(true);
        if (conn)
            return conn;
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_bClosed)
            return FdPtr();
        if (m_pFd)
            continue;  // a writer reconnected meanwhile
        const uint32 sinceAttempt = TickMs() - m_uLastAttempt;
        int wait = sinceAttempt >= kRetryMs ? 0 : static_cast<int>(kRetryMs - sinceAttempt);
        if (timeoutMs >= 0) {
            const int left = Remaining(deadline);
            if (left == 0)
                return FdPtr();
            if (wait > left)
                wait = left;
        }
        if (wait > 0)
            m_cond.wait_for(lock, std::chrono::milliseconds(wait));
    }
}

int CStreamSocket::Read(void* buf, int len, int timeoutMs)
{
    if (buf == nullptr || len <= 0)
        return -1;
    const uint32 deadline = TickMs() + static_cast<uint32>(timeoutMs < 0 ? 0 : timeoutMs);
    FdPtr conn = WaitForConnection(timeoutMs);
    if (!conn)
        return -1;
    for (;;) {
        pollfd pfd;
        pfd.fd = conn->Get();
        pfd.events = POLLIN;
        pfd.revents = 0;
        const int rc = ::poll(&pfd, 1, timeoutMs < 0 ? -1 : Remaining(deadline));
        if (rc < 0 && errno == EINTR)
            continue;
        if (rc == 0)
            return 0;  // time-out: the connection is fine
        if (rc < 0) {
            Drop(conn);
            return -1;
        }
        const ssize_t n = ::recv(conn->Get(), buf, static_cast<size_t>(len), MSG_DONTWAIT);
        if (n > 0)
            return static_cast<int>(n);
        if (n < 0 && (errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK))
            continue;
        // 0 is the peer's end of stream: it has gone, a later call reconnects.
        Drop(conn);
        return -1;
    }
}

int CStreamSocket::Write(const void* buf, int len)
{
    if (len < 0 || (buf == nullptr && len > 0))
        return -1;
    std::lock_guard<std::mutex> writing(m_writeMutex);
    FdPtr conn = Connection(true);
    if (!conn)
        return -1;
    const char* p = static_cast<const char*>(buf);
    int left = len;
    while (left > 0) {
        const ssize_t n = ::send(conn->Get(), p, static_cast<size_t>(left), MSG_NOSIGNAL);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            Drop(conn);
            return -1;
        }
        p += n;
        left -= static_cast<int>(n);
    }
    return len;
}

bool CStreamSocket::IsConnected()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<bool>(m_pFd);
}

uint32 CStreamSocket::Connects()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_uConnects;
}

void CStreamSocket::Close()
{
    FdPtr conn;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_bClosed = true;
        conn.swap(m_pFd);
    }
    if (conn)
        ::shutdown(conn->Get(), SHUT_RDWR);
    m_cond.notify_all();
}

}  // namespace Qb
