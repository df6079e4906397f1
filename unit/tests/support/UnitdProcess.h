// Starts the real unitd for the SDK's benchmark and stops it again. Tests use the shared
// launcher of tests/e2e/harness (Controller.h), which also keeps unitd's output.
#pragma once

#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <string>

class CUnitdProcess {
public:
    CUnitdProcess(const std::string& unitFile, const std::string& socketPath)
        : m_strUnit(unitFile), m_strSocket(socketPath)
    {
    }
    ~CUnitdProcess()
    {
        if (m_pid > 0 && kill(m_pid, SIGTERM) == 0)
            waitpid(m_pid, nullptr, 0);
    }

    // Starts unitd and waits (2 s at most) until its socket accepts; false when it did not.
    bool Start()
    {
        if ((m_pid = fork()) == 0) {
            execl(UNITD_PATH, "unitd", "--unit", m_strUnit.c_str(), "--socket", m_strSocket.c_str(),
                  static_cast<char*>(nullptr));
            _exit(127);
        }
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, m_strSocket.c_str(), sizeof addr.sun_path - 1);
        for (int i = 0; i < 200; ++i, usleep(10000)) {
            const int fd = socket(AF_UNIX, SOCK_STREAM, 0);
            const bool up = connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) == 0;
            close(fd);
            if (up)
                return true;
        }
        return false;
    }

    const std::string& Socket() const { return m_strSocket; }

private:
    std::string m_strUnit;
    std::string m_strSocket;
    pid_t m_pid = -1;
};

// A socket path of this process, short enough for sun_path.
inline std::string TestSocketPath(const std::string& tag)
{
    return "/tmp/zt-" + std::to_string(getpid()) + "-" + tag + ".sock";
}
