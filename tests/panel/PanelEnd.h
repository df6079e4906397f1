// The panel's end of a local socket: listens where the daemon's side connects, sends it raw
// bytes (key reports) and takes back everything it wrote.
#pragma once

#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "Qb/Types.h"

class CPanelEnd {
public:
    CPanelEnd() : m_iListen(::socket(AF_UNIX, SOCK_STREAM, 0)), m_iPeer(-1)
    {
        char dir[] = "/tmp/fp-panel-end-XXXXXX";
        m_strPath = std::string(::mkdtemp(dir)) + "/panel.socket";
        sockaddr_un addr = {};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, m_strPath.c_str(), sizeof addr.sun_path - 1);
        EXPECT_EQ(0, ::bind(m_iListen, reinterpret_cast<sockaddr*>(&addr), sizeof addr));
        EXPECT_EQ(0, ::listen(m_iListen, 1));
    }
    ~CPanelEnd()
    {
        ::close(m_iPeer);
        ::close(m_iListen);
        ::unlink(m_strPath.c_str());
        ::rmdir(m_strPath.substr(0, m_strPath.rfind('/')).c_str());
    }
    CPanelEnd(const CPanelEnd&) = delete;
    CPanelEnd& operator=(const CPanelEnd&) = delete;

    const std::string& Path() const { return m_strPath; }
    // Takes the connection of the side under test.
    bool Accept()
    {
        pollfd pfd = {m_iListen, POLLIN, 0};
        m_iPeer = ::poll(&pfd, 1, 5000) == 1 ? ::accept(m_iListen, nullptr, nullptr) : -1;
        return m_iPeer >= 0;
    }
    void Send(const std::vector<Qb::uint8>& bytes) { ::send(m_iPeer, bytes.data(), bytes.size(), MSG_NOSIGNAL); }
    void Key(int key, int state) { Send({0x09, 'K', Qb::uint8(key), Qb::uint8(state), 0x7E}); }
    // Closes the connection, as a restarting multiplexer would.
    void Drop()
    {
        ::close(m_iPeer);
        m_iPeer = -1;
    }
    // Everything written so far and not yet taken. Writes are complete when the writer's
    // call returns, so no waiting is needed.
    std::string Take()
    {
        std::string bytes;
        char buffer[4096];
        ssize_t got;
        while ((got = ::recv(m_iPeer, buffer, sizeof buffer, MSG_DONTWAIT)) > 0)
            bytes.append(buffer, static_cast<size_t>(got));
        return bytes;
    }

private:
    int m_iListen;
    int m_iPeer;
    std::string m_strPath;
};
