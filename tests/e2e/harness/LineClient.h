// A raw client of unitd's line protocol: one request line out, lines back.
#pragma once

#include <poll.h>
#include <unistd.h>

#include <string>

#include "UnixSocket.h"

namespace e2e {

class CLineClient {
public:
    explicit CLineClient(const std::string& path) : m_fd(ConnectUnix(path)) {}
    ~CLineClient()
    {
        if (m_fd >= 0)
            close(m_fd);
    }
    CLineClient(const CLineClient&) = delete;
    CLineClient& operator=(const CLineClient&) = delete;

    bool Connected() const { return m_fd >= 0; }
    bool Send(const std::string& text) { return SendAll(m_fd, text); }

    // The next line, "" after the time-out or when the server closed.
    std::string ReadLine(int timeoutMs = 2000)
    {
        for (;;) {
            size_t nl = m_buffer.find('\n');
            if (nl != std::string::npos) {
                std::string line = m_buffer.substr(0, nl);
                m_buffer.erase(0, nl + 1);
                return line;
            }
            pollfd p{m_fd, POLLIN, 0};
            char buf[4096];
            ssize_t n = poll(&p, 1, timeoutMs) > 0 ? read(m_fd, buf, sizeof buf) : 0;
            if (n <= 0)
                return "";
            m_buffer.append(buf, static_cast<size_t>(n));
        }
    }

    // Sends one request line and returns the next line that is not an event.
    std::string Ask(const std::string& line, int timeoutMs = 2000)
    {
        Send(line + "\n");
        for (;;) {
            std::string answer = ReadLine(timeoutMs);
            if (answer.compare(0, 9, "{\"event\":") != 0)
                return answer;
            m_events += answer + "\n";
        }
    }
    // Events seen by Ask, plus any that arrive within the time.
    std::string Events(int waitMs = 0)
    {
        for (std::string line; !(line = ReadLine(waitMs)).empty();)
            m_events += line + "\n";
        std::string out;
        out.swap(m_events);
        return out;
    }

private:
    int m_fd;
    std::string m_buffer;
    std::string m_events;
};

}  // namespace e2e
