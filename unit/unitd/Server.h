// unitd's server: one virtual unit on a Unix stream socket, many clients, one thread.
#pragma once

#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "Unit/Protocol.h"
#include "Unit/VirtualUnit.h"

namespace Unit {

class CUnitServer {
public:
    explicit CUnitServer(std::shared_ptr<CVirtualUnit> unit);
    ~CUnitServer();
    CUnitServer(const CUnitServer&) = delete;
    CUnitServer& operator=(const CUnitServer&) = delete;

    // Binds the socket path (replacing a stale socket file, refusing a live one).
    bool Listen(const std::string& path, std::string& error);
    // Serves until Stop(); returns 0.
    int Run();
    // Async-signal-safe: wakes Run() and makes it return.
    void Stop();

private:
    struct Client_t {
        CSession session;
        std::string in;
        std::string out;
        explicit Client_t(std::shared_ptr<CVirtualUnit> unit) : session(std::move(unit)) {}
    };

    void Accept();
    bool ReadFrom(int fd, Client_t& client);
    bool Flush(int fd, Client_t& client);
    void DeliverEvents();
    void Wake();

    std::shared_ptr<CVirtualUnit> m_pUnit;
    int m_iListener;
    int m_iListenerId;
    int m_wake[2];
    volatile bool m_bStop;
    std::string m_strPath;
    std::map<int, std::unique_ptr<Client_t>> m_clients;

    std::mutex m_eventMutex;  // changes from the unit, waiting for the server thread
    std::deque<Change_t> m_events;
};

}  // namespace Unit
