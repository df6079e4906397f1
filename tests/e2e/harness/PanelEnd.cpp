#include "PanelEnd.h"

#include <panelsim/PanelModel.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "ChildProcess.h"
#include "UnixSocket.h"

namespace e2e {

namespace {

const char* const kPanelSocket = "/var/run/ttyhub.ttyS4.socket";

}  // namespace

CPanelEnd::~CPanelEnd()
{
    if (m_iConnFd >= 0)
        close(m_iConnFd);
    if (m_iListenFd >= 0) {
        close(m_iListenFd);
        unlink(kPanelSocket);
    }
}

bool CPanelEnd::Start(std::string* error)
{
    m_iListenFd = ListenUnix(kPanelSocket, 4, "panel end", error);
    return m_iListenFd >= 0;
}

void CPanelEnd::Pump(int waitMs)
{
    const int connFd = m_iConnFd;
    struct pollfd fds[2] = {{m_iListenFd, POLLIN, 0}, {connFd, POLLIN, 0}};
    if (poll(fds, connFd >= 0 ? 2 : 1, waitMs) <= 0)
        return;
    if (fds[0].revents & POLLIN) {
        const int fd = accept4(m_iListenFd, nullptr, nullptr, SOCK_CLOEXEC);
        if (fd >= 0) {
            if (m_iConnFd >= 0)
                close(m_iConnFd);
            m_iConnFd = fd;
            ++m_iConnections;
        }
    }
    if (connFd < 0 || connFd != m_iConnFd || fds[1].revents == 0)
        return;
    char buf[4096];
    ssize_t got;
    while ((got = recv(m_iConnFd, buf, sizeof buf, MSG_DONTWAIT)) > 0)
        m_received.append(buf, static_cast<size_t>(got));
    if (got == 0 || (errno != EAGAIN && errno != EINTR)) {
        close(m_iConnFd);
        m_iConnFd = -1;
    }
}

bool CPanelEnd::WaitUntil(const std::function<bool()>& done, int timeoutMs)
{
    const long long end = NowMs() + timeoutMs;
    for (Pump(0);; Pump(static_cast<int>(std::max(0LL, std::min(end - NowMs(), 50LL))))) {
        if (done())
            return true;
        if (NowMs() >= end)
            return false;
    }
}

bool CPanelEnd::WaitForConnections(int count, int timeoutMs)
{
    return WaitUntil([&] { return m_iConnections >= count; }, timeoutMs);
}

std::string CPanelEnd::Received()
{
    Pump(0);
    return m_received;
}

size_t CPanelEnd::WaitForReceived(const std::string& bytes, int timeoutMs, size_t from)
{
    size_t at = std::string::npos;
    WaitUntil(
        [&] {
            return (at = from <= m_received.size() ? m_received.find(bytes, from) : at) != std::string::npos;
        },
        timeoutMs);
    return at == std::string::npos ? at : at + bytes.size();
}

std::string CPanelEnd::Screen()
{
    Panelsim::CPanelModel model;
    model.Feed(Received());
    return model.Dump();
}

std::string CPanelEnd::ScreenErrors()
{
    Panelsim::CPanelModel model;
    model.Feed(Received());
    return model.Errors() == 0
               ? std::string()
               : std::to_string(model.Errors()) + " protocol errors, the last: " + model.LastError();
}

bool CPanelEnd::WaitForScreen(const std::string& text, int timeoutMs, std::string* dump)
{
    std::string screen;
    const bool shown =
        WaitUntil([&] { return (screen = Screen()).find(text) != std::string::npos; }, timeoutMs);
    if (dump != nullptr)
        *dump = screen;
    return shown;
}

bool CPanelEnd::SendKey(int key, int state)
{
    Pump(0);
    const char frame[5] = {0x09, 'K', static_cast<char>(key), static_cast<char>(state), 0x7E};
    return m_iConnFd >= 0 && SendAll(m_iConnFd, std::string(frame, sizeof frame));
}

bool CPanelEnd::Press(int key)
{
    return SendKey(key, STATE_DOWN) && SendKey(key, STATE_UP);
}

void CPanelEnd::Drop()
{
    Pump(0);
    if (m_iConnFd >= 0)
        close(m_iConnFd);
    m_iConnFd = -1;
}

}  // namespace e2e
