#include "WebPanel.h"

#include <httplib.h>
#include <sys/eventfd.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <iostream>
#include <nlohmann/json.hpp>

namespace Panelsim {

// The page, embedded at build time (web/panel.html).
extern const char kWebPage[];
extern const size_t kWebPageSize;

namespace {

const int kMaxPages = 16;  // open event streams; each holds one HTTP thread
const int kThreads = kMaxPages + 8;
const auto kKeepAlive = std::chrono::seconds(15);  // a comment on an idle stream finds closed pages

double WallMs()
{
    struct timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<double>(now.tv_sec) * 1000.0 + static_cast<double>(now.tv_nsec) / 1e6;
}

// "[ADDRESS:]PORT" (an IPv6 address in brackets) into its parts; false when malformed.
bool ParseWhere(const std::string& where, std::string& host, int& port)
{
    host = "127.0.0.1";
    std::string portText = where;
    const size_t colon = where.rfind(':');
    if (colon != std::string::npos) {
        host = where.substr(0, colon);
        portText = where.substr(colon + 1);
        if (host.size() >= 2 && host.front() == '[' && host.back() == ']') {
            host = host.substr(1, host.size() - 2);
        }
        if (host.empty()) {
            return false;
        }
    }
    if (portText.empty() || portText.size() > 5 || portText.find_first_not_of("0123456789") != std::string::npos) {
        return false;
    }
    port = std::stoi(portText);
    return port <= 65535;
}

}  // namespace

std::string PanelJson(const CPanelModel& model, bool connected, double stamp)
{
    nlohmann::json rows = nlohmann::json::array(), marks = nlohmann::json::array();
    for (int row = 0; row < PANEL_ROWS; ++row) {
        std::string text, mark;
        for (int column = 0; column < PANEL_COLUMNS; ++column) {
            const unsigned char code = model.Code(row, column);
            const char* symbol = GlyphSymbol(code);
            text += symbol != nullptr ? std::string(symbol) : std::string(1, StandIn(code));
            mark += model.IsHighlighted(row, column) ? '1' : '0';
        }
        rows.push_back(text);
        marks.push_back(mark);
    }
    nlohmann::json out = {{"rows", rows},       {"highlight", marks},         {"connected", connected},
                          {"frames", model.Frames()}, {"errors", model.Errors()}, {"stamp", stamp}};
    return out.dump();
}

CWebPanel::CWebPanel(bool logToStderr)
    : m_bLogToStderr(logToStderr),
      m_iWake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      m_uFramesSent(0),
      m_bConnectedSent(false),
      m_uErrorsSent(0),
      m_uVersion(0),
      m_bStopping(false),
      m_iPages(0)
{
    m_strSnapshot = PanelJson(CPanelModel(), false, WallMs());
    m_uVersion = 1;
}

CWebPanel::~CWebPanel()
{
    Stop();
    if (m_iWake >= 0) {
        close(m_iWake);
    }
}

bool CWebPanel::Start(const std::string& where, std::string& error)
{
    std::string host;
    int port = 0;
    if (!ParseWhere(where, host, port)) {
        error = "--web takes [ADDRESS:]PORT, not \"" + where + "\"";
        return false;
    }
    if (m_iWake < 0) {
        error = std::string("cannot create an eventfd: ") + std::strerror(errno);
        return false;
    }
    m_pHttp.reset(new httplib::Server);
    m_pHttp->new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
    // Every event and answer goes out at once: the display is a stream of small writes.
    m_pHttp->set_tcp_nodelay(true);
    m_pHttp->set_keep_alive_timeout(2);
    Routes();
    if (port == 0) {
        port = m_pHttp->bind_to_any_port(host);
    } else if (!m_pHttp->bind_to_port(host, port)) {
        port = -1;
    }
    if (port <= 0) {
        error = "cannot listen for the web panel on " + where + " (address in use or not ours?)";
        m_pHttp.reset();
        return false;
    }
    const bool v6 = host.find(':') != std::string::npos;
    m_strUrl = "http://" + (v6 ? "[" + host + "]" : host) + ":" + std::to_string(port) + "/";
    m_thread = std::thread([this] { m_pHttp->listen_after_bind(); });
    return true;
}

void CWebPanel::Stop()
{
    if (!m_pHttp) {
        return;
    }
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_bStopping = true;
    }
    m_changed.notify_all();
    m_pHttp->stop();
    if (m_thread.joinable()) {
        m_thread.join();
    }
    m_pHttp.reset();
}

void CWebPanel::Routes()
{
    m_pHttp->Get("/", [](const httplib::Request&, httplib::Response& res) {
        res.set_header("Cache-Control", "no-store");
        res.set_content(std::string(kWebPage, kWebPageSize), "text/html; charset=utf-8");
    });
    m_pHttp->Get("/favicon.ico", [](const httplib::Request&, httplib::Response& res) { res.status = 204; });
    m_pHttp->Get("/state", [this](const httplib::Request&, httplib::Response& res) {
        std::lock_guard<std::mutex> lock(m_mutex);
        res.set_content(m_strSnapshot, "application/json");
    });
    m_pHttp->Get("/events", [this](const httplib::Request&, httplib::Response& res) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (m_iPages >= kMaxPages) {
                res.status = 503;
                res.set_content("too many open pages\n", "text/plain");
                return;
            }
            ++m_iPages;
        }
        res.set_header("Cache-Control", "no-store");
        auto seen = std::make_shared<uint64_t>(0);
        res.set_chunked_content_provider(
            "text/event-stream",
            [this, seen](size_t, httplib::DataSink& sink) {
                std::string chunk;
                return Stream(*seen, chunk) && sink.write(chunk.data(), chunk.size());
            },
            [this](bool) {
                std::lock_guard<std::mutex> lock(m_mutex);
                --m_iPages;
            });
    });
    // POST /key?key=ENTER&state=down: one key report; a hold is a down and, later, an up.
    m_pHttp->Post("/key", [this](const httplib::Request& req, httplib::Response& res) {
        const std::string name = req.get_param_value("key"), state = req.get_param_value("state");
        const int key = KeyByName(name);
        if (key == 0 || (state != "down" && state != "up")) {
            res.status = 400;
            res.set_content(key == 0 ? "unknown key \"" + name + "\"\n" : "state must be down or up\n", "text/plain");
            return;
        }
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_keys.push_back(Key_t{key, state == "down" ? KEY_STATE_DOWN : KEY_STATE_UP});
        }
        const uint64_t one = 1;
        if (write(m_iWake, &one, sizeof one) < 0) {
            // The counter is full only when the loop has stopped reading; the key waits.
        }
        res.status = 204;
    });
    // Every refused request leaves a line: malformed ones (answered by the library), unknown
    // paths and keys.
    m_pHttp->set_logger([this](const httplib::Request& req, const httplib::Response& res) {
        if (res.status >= 400) {
            std::string why = res.body.substr(0, res.body.find('\n'));
            if (why.empty() && res.status == 400) {
                why = "malformed (a POST needs a Content-Length)";
            }
            const std::string what =
                req.target.empty() ? "an unreadable request" : req.method + " " + req.target.substr(0, 200);
            Log("web: " + std::to_string(res.status) + " for " + what + (why.empty() ? "" : ": " + why));
        }
    });
}

bool CWebPanel::Stream(uint64_t& seen, std::string& chunk)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, kKeepAlive, [&] { return m_bStopping || m_uVersion != seen; });
    if (m_bStopping) {
        return false;
    }
    if (m_uVersion == seen) {
        chunk = ": idle\n\n";
    } else {
        seen = m_uVersion;
        chunk = "data: " + m_strSnapshot + "\n\n";
    }
    return true;
}

void CWebPanel::Publish(const std::string& snapshot)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_strSnapshot = snapshot;
        ++m_uVersion;
    }
    m_changed.notify_all();
}

void CWebPanel::Log(const std::string& line)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_strLastLog = line;
    }
    if (m_bLogToStderr) {
        std::cerr << "panelsim: " + line + "\n" << std::flush;
    }
}

void CWebPanel::Serve(CPanelServer& server)
{
    uint64_t count;
    while (read(m_iWake, &count, sizeof count) > 0) {
    }
    std::deque<Key_t> keys;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        keys.swap(m_keys);
    }
    for (const Key_t& k : keys) {
        if (!server.Send(KeyFrame(k.key, k.state))) {
            Log(std::string("web: no daemon connected: ") + KeyName(k.key) + " not sent");
        }
    }
    // Everything the last poll brought in goes out as one event, stamped now: just after
    // the daemon's bytes were read and decoded.
    const CPanelModel& model = server.Model();
    if (model.Frames() != m_uFramesSent || server.Connected() != m_bConnectedSent ||
        model.Errors() != m_uErrorsSent) {
        m_uFramesSent = model.Frames();
        m_bConnectedSent = server.Connected();
        m_uErrorsSent = model.Errors();
        Publish(PanelJson(model, server.Connected(), WallMs()));
    }
}

std::string CWebPanel::Status() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::string status = "web panel " + m_strUrl + "   pages open " + std::to_string(m_iPages);
    if (!m_strLastLog.empty()) {
        status += "   last: " + m_strLastLog;
    }
    return status;
}

}  // namespace Panelsim
