// The panel in a web browser: an HTTP server on its own threads serves one self-contained
// page, streams the display to every open page as server-sent events, and takes key reports
// (down and up, with the browser's own timing) that the emulator's loop passes to the daemon.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "PanelServer.h"

namespace httplib {
class Server;
}

namespace Panelsim {

class CWebPanel : public IPanelWatcher {
public:
    // logToStderr: write every refused request to standard error as it happens (no terminal
    // panel is drawn there); the newest one is in Status() either way.
    explicit CWebPanel(bool logToStderr);
    ~CWebPanel() override;
    CWebPanel(const CWebPanel&) = delete;
    CWebPanel& operator=(const CWebPanel&) = delete;

    // "[ADDRESS:]PORT", the address 127.0.0.1 when none is given: whoever reaches the page
    // controls the unit. Port 0 takes a free one. False with a message when it cannot listen.
    bool Start(const std::string& where, std::string& error);
    void Stop();
    // http://ADDRESS:PORT/ once started.
    const std::string& Url() const { return m_strUrl; }

    int WakeFd() const override { return m_iWake; }
    void Serve(CPanelServer& server) override;
    std::string Status() const override;

private:
    struct Key_t {
        int key;
        int state;
    };

    void Routes();
    void Publish(const std::string& snapshot);
    void Log(const std::string& line);
    // The SSE stream of one page: the newest snapshot whenever it changes.
    bool Stream(uint64_t& seen, std::string& chunk);

    bool m_bLogToStderr;
    int m_iWake;  // eventfd: a key report is queued
    std::string m_strUrl;
    std::unique_ptr<httplib::Server> m_pHttp;
    std::thread m_thread;

    // Seen by the emulator's loop only.
    uint32_t m_uFramesSent;
    bool m_bConnectedSent;
    uint32_t m_uErrorsSent;

    // Shared by the HTTP threads and the emulator's loop, under m_mutex.
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::string m_strSnapshot;  // the display as JSON
    uint64_t m_uVersion;
    bool m_bStopping;
    int m_iPages;  // open event streams
    std::deque<Key_t> m_keys;
    std::string m_strLastLog;
};

// The display, the daemon's connection and the error count as the page's JSON; `stamp` is
// the wall-clock time in ms at which the emulator had the frame (for measuring latency).
std::string PanelJson(const CPanelModel& model, bool connected, double stamp);

}  // namespace Panelsim
