// A raw protocol client for tests: one request line out, lines back.
#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <string>

class CLineClient {
public:
    explicit CLineClient(const std::string& path)
    {
        m_fd = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, path.c_str(), sizeof addr.sun_path - 1);
        if (connect(m_fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0) {
            close(m_fd);
            m_fd = -1;
        }
    }
    ~CLineClient() { Close(); }

    bool Connected() const { return m_fd >= 0; }
    void Close()
    {
        if (m_fd >= 0) {
            close(m_fd);
            m_fd = -1;
        }
    }
    bool Send(const std::string& text)
    {
        return send(m_fd, text.data(), text.size(), MSG_NOSIGNAL) == (ssize_t)text.size();
    }

    // The next line, "" after the time-out or when the server closed.
    std::string ReadLine(int timeoutMs = 2000)
    {
        while (true) {
            size_t nl = m_buffer.find('\n');
            if (nl != std::string::npos) {
                std::string line = m_buffer.substr(0, nl);
                m_buffer.erase(0, nl + 1);
                return line;
            }
            pollfd p{m_fd, POLLIN, 0};
            if (poll(&p, 1, timeoutMs) <= 0) {
                return "";
            }
            char buf[4096];
            ssize_t n = read(m_fd, buf, sizeof buf);
            if (n <= 0) {
                return "";
            }
            m_buffer.append(buf, static_cast<size_t>(n));
        }
    }

    // Sends one request line and returns the next line that is not an event.
    std::string Ask(const std::string& line, int timeoutMs = 2000)
    {
        Send(line + "\n");
        while (true) {
            std::string answer = ReadLine(timeoutMs);
            if (answer.compare(0, 9, "{\"event\":") != 0) {
                return answer;
            }
            m_events += answer + "\n";
        }
    }
    // Events seen by Ask, plus any that arrive within the time.
    std::string Events(int waitMs = 0)
    {
        for (std::string line; !(line = ReadLine(waitMs)).empty();) {
            m_events += line + "\n";
        }
        std::string out = m_events;
        m_events.clear();
        return out;
    }

private:
    int m_fd = -1;
    std::string m_buffer;
    std::string m_events;
};
