// Starts the real unitd for a test and stops it again.
#pragma once

#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <string>
#include <thread>

class CUnitdProcess {
public:
    CUnitdProcess(const std::string& unitFile, const std::string& socketPath)
        : m_strUnit(unitFile), m_strSocket(socketPath)
    {
    }
    ~CUnitdProcess() { Stop(); }

    // Starts unitd and waits until its socket accepts; false when it did not come up.
    bool Start()
    {
        m_pid = fork();
        if (m_pid == 0) {
            execl(UNITD_PATH, "unitd", "--unit", m_strUnit.c_str(), "--socket", m_strSocket.c_str(),
                  static_cast<char*>(nullptr));
            _exit(127);
        }
        for (int i = 0; i < 200; ++i) {
            if (CanConnect()) {
                return true;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    }

    // SIGTERM and wait; the exit status, or -1 when it was not running or died of a signal.
    int Stop()
    {
        if (m_pid <= 0) {
            return -1;
        }
        kill(m_pid, SIGTERM);
        int status = 0;
        waitpid(m_pid, &status, 0);
        m_pid = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    // Waits for unitd to end by itself; its exit status as Stop().
    int Wait()
    {
        if (m_pid <= 0) {
            return -1;
        }
        int status = 0;
        waitpid(m_pid, &status, 0);
        m_pid = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    bool CanConnect() const
    {
        int fd = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, m_strSocket.c_str(), sizeof addr.sun_path - 1);
        bool ok = connect(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) == 0;
        close(fd);
        return ok;
    }

    const std::string& Socket() const { return m_strSocket; }

private:
    std::string m_strUnit;
    std::string m_strSocket;
    pid_t m_pid = -1;
};

// A test's own socket path, short enough for sun_path.
inline std::string TestSocketPath(const std::string& tag)
{
    return "/tmp/zt-" + std::to_string(getpid()) + "-" + tag + ".sock";
}
