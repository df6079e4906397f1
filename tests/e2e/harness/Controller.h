// The controller side of the tests: a unitd serving a unit file, with a line-protocol link
// to it for the test's own reads and forced writes, and a tap that sits between the daemon
// and unitd and records every request the daemon makes.
#pragma once

#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>
#include <vector>

#include "ChildProcess.h"
#include "LineClient.h"

namespace e2e {

// unitd serving one unit file. A bare file name is one of unit/units, anything else a path.
class CUnitServer {
public:
    // On the given socket path.
    CUnitServer(const std::string& unitFile, const std::string& socketPath);
    // On a socket in a folder of its own under /tmp, removed with the server.
    explicit CUnitServer(const std::string& unitFile);
    ~CUnitServer();
    CUnitServer(const CUnitServer&) = delete;
    CUnitServer& operator=(const CUnitServer&) = delete;

    // Starts unitd and waits until its socket answers.
    bool Start(std::string* error);
    // SIGTERM and waits; unitd's exit status, -1 when it died of a signal or did not run.
    int Stop();
    const std::string& SocketPath() const { return m_strSocket; }
    // The controller SDK's target for this unitd.
    std::string Target() const { return "unix:" + m_strSocket; }
    CChildProcess& Process() { return *m_pProcess; }

    // A forced write plays the receiver's hardware (also read-only objects).
    nlohmann::json Set(const std::string& name, const std::string& instance, const nlohmann::json& value,
                       bool force = true);
    // The value of one key ("systemState.0"); null when unknown.
    nlohmann::json Get(const std::string& key);
    // The write journal since sequence number `since`.
    nlohmann::json Writes(int since = 0);
    // The journal entries since `since` that name the object.
    nlohmann::json WritesOf(const std::string& name, int since = 0);
    // The journal's next sequence number.
    int NextWrite();
    // The values one client wrote to the object, oldest first; texts as they are, other
    // values as JSON.
    std::vector<std::string> ValuesWrittenBy(const std::string& client, const std::string& name);

private:
    std::string m_strUnit;
    std::string m_strOwnDir;  // made by the server, removed with it; empty when given a socket
    std::string m_strSocket;
    std::unique_ptr<CChildProcess> m_pProcess;
    std::unique_ptr<CLineClient> m_pLink;
    int m_iNextId = 1;
    std::mutex m_mutex;  // one request at a time on the link (Request)

    // Sends the request with an "id" and returns the answer, or "ok": false and a "msg".
    nlohmann::json Request(nlohmann::json request);
};

// A recording relay: the daemon connects to Path(); every connection is relayed to the
// upstream socket, and every line the daemon sends is kept with its time.
class CControllerTap {
public:
    struct Request {
        long long timeMs;  // NowMs() when it passed
        nlohmann::json json;
    };

    CControllerTap(const std::string& path, const std::string& upstream);
    ~CControllerTap();

    bool Start(std::string* error);
    const std::string& Path() const { return m_strPath; }
    // Requests with this "op" (any op when empty) that name `object` (in "name", "keys" or
    // "types"), in the order they passed.
    std::vector<Request> Find(const std::string& op, const std::string& object);

private:
    void Accept();
    void Relay(int from, int to, bool record);

    std::string m_strPath;
    std::string m_strUpstream;
    int m_iListenFd = -1;
    std::thread m_acceptor;
    std::vector<int> m_fds;             // both ends of every pair; the acceptor's until it ends
    std::vector<std::thread> m_relays;  // likewise

    std::mutex m_mutex;  // guards m_requests
    std::vector<Request> m_requests;
};

}  // namespace e2e
