// Local (Unix domain) stream socket that keeps trying to reach its peer.
#pragma once

#include <condition_variable>
#include <memory>
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
    // error (then the connection is dropped, so the peer never sees half a message followed
    // by more). Never raises SIGPIPE. Never waits for a connection.
    int Write(const void* buf, int len);

    // True while connected; does not try to connect.
    bool IsConnected();
    // Connections made so far: a change tells a new peer, which knows nothing yet.
    uint32 Connects();
    // Disconnects for good: a waiting Read returns, later calls fail.
    void Close();
    const std::string& Path() const { return m_strPath; }

private:
    class CFd;
    typedef std::shared_ptr<CFd> FdPtr;

    FdPtr Connection(bool mayReconnect);
    void Drop(const FdPtr& fd);
    FdPtr WaitForConnection(int timeoutMs);

    std::string m_strPath;
    std::mutex m_mutex;              // guards the members below
    std::condition_variable m_cond;  // wakes a reader waiting for the connection
    FdPtr m_pFd;                     // shared: a reader keeps its fd open while a writer drops it
    uint32 m_uLastAttempt;
    uint32 m_uConnects;
    bool m_bAttempted;
    bool m_bClosed;
    std::mutex m_writeMutex;  // one Write at a time, so frames never interleave
};

}  // namespace Qb
