// Helpers shared by the platform library tests: polling waits, scratch folders and
// child processes whose exit status and stderr are checked.
#pragma once

#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>

namespace QbTest {

// Polls cond until it holds or timeoutMs passes; generous limits keep loaded machines green.
inline bool WaitFor(const std::function<bool()>& cond, int timeoutMs = 5000)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (!cond()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

inline long ElapsedMs(std::chrono::steady_clock::time_point since)
{
    return static_cast<long>(
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - since)
            .count());
}

// A private folder under /tmp (short, so socket paths fit), removed with its files.
class ScratchDir {
public:
    ScratchDir()
    {
        char tmpl[] = "/tmp/qbt.XXXXXX";
        m_path = mkdtemp(tmpl) ? tmpl : "/tmp";
    }
    ~ScratchDir() { (void)system(("rm -rf '" + m_path + "'").c_str()); }
    std::string File(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
};

struct ChildResult {
    int status = -1;  // exit status, or -1 when the child did not exit normally
    std::string err;  // everything it wrote to stderr
};

// Runs body in a forked child with stderr captured; the child exits with body's result.
inline ChildResult RunChild(const std::function<int()>& body)
{
    ChildResult r;
    int fds[2];
    if (pipe(fds) != 0)
        return r;
    const pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        dup2(fds[1], STDERR_FILENO);
        close(fds[1]);
        _exit(body());
    }
    close(fds[1]);
    char buf[256];
    ssize_t n;
    while ((n = read(fds[0], buf, sizeof buf)) > 0)
        r.err.append(buf, static_cast<size_t>(n));
    close(fds[0]);
    int status = 0;
    if (pid > 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status))
        r.status = WEXITSTATUS(status);
    return r;
}

}  // namespace QbTest
