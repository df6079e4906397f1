// The multiplexer's end of the panel socket: listens on the path, takes the daemon's
// connection (and every later one when the daemon reconnects), feeds what the daemon sends
// into the panel model and sends key reports back.
#pragma once

#include <cstdint>
#include <string>

#include "panelsim/PanelModel.h"

namespace Panelsim {

uint32_t NowMs();

class CPanelServer;

// Something served alongside the daemon (the web panel): its file descriptor is polled with
// the daemon's socket, and after every poll it is given the panel to pass keys to the daemon
// and to see what the daemon drew.
class IPanelWatcher {
public:
    virtual ~IPanelWatcher() = default;
    virtual int WakeFd() const = 0;
    virtual void Serve(CPanelServer& server) = 0;
    // One line for the terminal panel's status area.
    virtual std::string Status() const = 0;
};

class CPanelServer {
public:
    explicit CPanelServer(const std::string& path);
    ~CPanelServer();
    CPanelServer(const CPanelServer&) = delete;
    CPanelServer& operator=(const CPanelServer&) = delete;

    // Creates the listening socket, replacing a stale socket file. False with a message
    // when the path is taken by a live listener or cannot be used.
    bool Open(std::string& error);

    // Waits at most timeoutMs for the daemon (data, a connection, a hang-up) and handles
    // what arrived. True when extraFd (if not -1) became readable.
    bool Poll(int timeoutMs, int extraFd = -1);
    bool Connected() const { return m_iClient >= 0; }
    uint32_t Connections() const { return m_uConnections; }
    // Sends bytes to the daemon; false when no daemon is connected or it has gone.
    bool Send(const std::string& bytes);

    // Not owned; null for none. Poll serves it after handling the daemon.
    void SetWatcher(IPanelWatcher* watcher) { m_pWatcher = watcher; }
    IPanelWatcher* Watcher() const { return m_pWatcher; }

    CPanelModel& Model() { return m_model; }
    const std::string& Path() const { return m_strPath; }

private:
    void Accept();
    void Drop();

    std::string m_strPath;
    int m_iListen;
    int m_iClient;
    uint32_t m_uConnections;
    CPanelModel m_model;
    IPanelWatcher* m_pWatcher;
};

}  // namespace Panelsim
