// Local (Unix domain) stream socket that keeps trying to reach its peer.
#pragma once

#include <mutex>
#include <string>

#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

namespace Qb {

class CLocalSocketAddress {
public:
    explicit CLocalSocketAddress(const std::string& path) : m_strPath(path) {}
    const std::string& Path() const { return m_strPath; }

private:
    std::string m_strPath;
};

// A client stream socket. It connects in the constructor; when the peer is absent or goes
// away, later calls try to connect again, at most once a second, so the owner never has to
// reconnect by hand. Reads and writes may run on different threads at the same time.
class CStreamSocket : private CUncopyable {
public:
    explicit CStreamSocket(const CLocalSocketAddress& address);
    ~CStreamSocket();

    // Reads up to len bytes, waiting at most timeoutMs (< 0: for ever). Returns the byte
    // count, 0 on time-out, negative on error or while disconnected (after waiting up to
    // timeoutMs, so a reader loop never spins).
    int Read(void* buf, int len, int timeoutMs);
    // Writes all len bytes (or fails). Returns len, or negative when disconnected or on
    // error. Never raises SIGPIPE.
    int Write(const void* buf, int len);

    bool IsConnected();
    void Close();
    const std::string& Path() const { return m_strPath; }

private:
    int Connection(bool mayReconnect);
    void Drop(int fd);

    std::string m_strPath;
    std::mutex m_mutex;       // guards m_iFd and the reconnect time
    int m_iFd;
    uint32 m_uLastAttempt;
    bool m_bAttempted;
    bool m_bClosed;
};

}  // namespace Qb
