#include "PanelEnd.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>

#if __has_include(<panelsim/PanelModel.h>)
#include <panelsim/PanelModel.h>
#define E2E_HAVE_PANEL_DECODER 1
#endif

#include "UnixSocket.h"

namespace e2e {

const char* const kPanelSocket = "/var/run/ttyhub.ttyS4.socket";

CPanelEnd::CPanelEnd(const std::string& path)
    : m_strPath(path), m_iListenFd(-1), m_bStop(false), m_iConnFd(-1), m_iConnections(0)
{
}

CPanelEnd::~CPanelEnd()
{
    m_bStop = true;
    if (m_thread.joinable())
        m_thread.join();
    if (m_iConnFd >= 0)
        close(m_iConnFd);
    if (m_iListenFd >= 0) {
        close(m_iListenFd);
        unlink(m_strPath.c_str());
    }
}

bool CPanelEnd::Start(std::string* error)
{
    m_iListenFd = ListenUnix(m_strPath, 4, "panel end", error);
    if (m_iListenFd < 0)
        return false;
    m_thread = std::thread(&CPanelEnd::Run, this);
    return true;
}

void CPanelEnd::Run()
{
    while (!m_bStop) {
        int connFd;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            connFd = m_iConnFd;
        }
        struct pollfd fds[2] = {{m_iListenFd, POLLIN, 0}, {connFd, POLLIN, 0}};
        int n = poll(fds, connFd >= 0 ? 2 : 1, 50);
        if (n <= 0)
            continue;
        if (fds[0].revents & POLLIN) {
            int fd = accept4(m_iListenFd, nullptr, nullptr, SOCK_CLOEXEC);
            if (fd >= 0) {
                std::lock_guard<std::mutex> lock(m_mutex);
                if (m_iConnFd >= 0)
                    close(m_iConnFd);
                m_iConnFd = fd;
                ++m_iConnections;
                m_changed.notify_all();
            }
            continue;  // the connection polled may have been replaced
        }
        if (connFd >= 0 && fds[1].revents != 0) {
            char buf[4096];
            ssize_t got = read(connFd, buf, sizeof buf);
            std::lock_guard<std::mutex> lock(m_mutex);
            if (got > 0) {
                m_received.append(buf, static_cast<size_t>(got));
                m_changed.notify_all();
            } else if ((got == 0 || errno != EINTR) && m_iConnFd == connFd) {
                close(m_iConnFd);
                m_iConnFd = -1;
            }
        }
    }
}

int CPanelEnd::Connections()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_iConnections;
}

bool CPanelEnd::WaitForConnections(int count, int timeoutMs)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                              [&] { return m_iConnections >= count; });
}

std::string CPanelEnd::Received()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_received;
}

size_t CPanelEnd::WaitForReceived(const std::string& bytes, int timeoutMs, size_t from)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    size_t at = std::string::npos;
    m_changed.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] {
        at = from <= m_received.size() ? m_received.find(bytes, from) : std::string::npos;
        return at != std::string::npos;
    });
    return at == std::string::npos ? at : at + bytes.size();
}

std::string CPanelEnd::Screen()
{
#ifdef E2E_HAVE_PANEL_DECODER
    Panelsim::CPanelModel model;
    model.Feed(Received());
    return model.Dump();
#else
    return std::string();
#endif
}

std::string CPanelEnd::ScreenLastError()
{
#ifdef E2E_HAVE_PANEL_DECODER
    Panelsim::CPanelModel model;
    model.Feed(Received());
    return model.LastError();
#else
    return std::string();
#endif
}

int CPanelEnd::ScreenErrors()
{
#ifdef E2E_HAVE_PANEL_DECODER
    Panelsim::CPanelModel model;
    model.Feed(Received());
    return static_cast<int>(model.Errors());
#else
    return 0;
#endif
}

bool CPanelEnd::WaitForScreen(const std::string& text, int timeoutMs, std::string* dump)
{
    auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    for (;;) {
        std::string screen = Screen();
        if (dump != nullptr)
            *dump = screen;
        if (!text.empty() && screen.find(text) != std::string::npos)
            return true;
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, std::chrono::milliseconds(50));
    }
}

bool CPanelEnd::SendBytes(const std::string& bytes)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_iConnFd >= 0 && SendAll(m_iConnFd, bytes);
}

bool CPanelEnd::SendKey(int key, int state)
{
    const char frame[5] = {0x09, 'K', static_cast<char>(key), static_cast<char>(state), 0x7E};
    return SendBytes(std::string(frame, sizeof frame));
}

bool CPanelEnd::Press(int key)
{
    return SendKey(key, STATE_DOWN) && SendKey(key, STATE_UP);
}

void CPanelEnd::Drop()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_iConnFd >= 0) {
        close(m_iConnFd);
        m_iConnFd = -1;
    }
}

std::string Hex(const std::string& bytes)
{
    std::string out;
    char two[4];
    for (unsigned char c : bytes) {
        std::snprintf(two, sizeof two, "%02x", c);
        if (!out.empty())
            out += ' ';
        out += two;
    }
    return out;
}

}  // namespace e2e
