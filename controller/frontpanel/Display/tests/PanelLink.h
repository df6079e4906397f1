// Test helper: a CStreamSocket connected to a listening socket of the test's own, so that
// everything a display writes can be read back byte for byte.
#pragma once

#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <string>

#include "Qb/Socket.h"

class CPanelLink {
public:
    CPanelLink() : m_iListen(-1), m_iPeer(-1)
    {
        char dir[] = "/tmp/fpdisplayXXXXXX";
        if (mkdtemp(dir) != nullptr) {
            m_strDir = dir;
        }
        m_strPath = m_strDir + "/panel.socket";
        sockaddr_un address;
        std::memset(&address, 0, sizeof address);
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, m_strPath.c_str(), sizeof address.sun_path - 1);
        m_iListen = socket(AF_UNIX, SOCK_STREAM, 0);
        bind(m_iListen, reinterpret_cast<sockaddr*>(&address), sizeof address);
        listen(m_iListen, 1);
        m_pSocket.reset(new Qb::CStreamSocket(Qb::CLocalSocketAddress(m_strPath)));
        m_iPeer = accept(m_iListen, nullptr, nullptr);
    }

    ~CPanelLink()
    {
        m_pSocket.reset();
        if (m_iPeer >= 0) {
            close(m_iPeer);
        }
        if (m_iListen >= 0) {
            close(m_iListen);
        }
        unlink(m_strPath.c_str());
        rmdir(m_strDir.c_str());
    }

    Qb::CStreamSocket& Socket() { return *m_pSocket; }
    bool Connected() const { return m_iPeer >= 0; }

    // Everything written so far and not yet taken. Writes are complete when Write returns,
    // so no waiting is needed.
    std::string Take()
    {
        std::string bytes;
        char buffer[4096];
        for (;;) {
            const ssize_t got = recv(m_iPeer, buffer, sizeof buffer, MSG_DONTWAIT);
            if (got <= 0) {
                return bytes;
            }
            bytes.append(buffer, static_cast<size_t>(got));
        }
    }

private:
    std::string m_strDir;
    std::string m_strPath;
    int m_iListen;
    int m_iPeer;
    std::unique_ptr<Qb::CStreamSocket> m_pSocket;
};
