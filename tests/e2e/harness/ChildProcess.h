// A program started by a test: its stdout and stderr go to files of its own, it can be
// waited for and signalled, and it is killed and reaped when the object goes, so a failing
// test never leaves a process behind.
#pragma once

#include <sys/types.h>

#include <mutex>
#include <string>
#include <vector>

namespace e2e {

class CChildProcess {
public:
    // argv[0] is the program: a path, or a name looked up in PATH.
    explicit CChildProcess(std::vector<std::string> argv);
    // Kills the whole process group (SIGKILL) if it still runs, reaps it, removes its output.
    ~CChildProcess();

    CChildProcess(const CChildProcess&) = delete;
    CChildProcess& operator=(const CChildProcess&) = delete;

    // False with a message in *error when the program cannot be started.
    bool Start(std::string* error);
    pid_t Pid() const { return m_pid; }

    void Signal(int sig);
    // True once the process has ended (reaped); waits at most timeoutMs.
    bool WaitExit(int timeoutMs);
    bool HasExited();
    // After an exit: the status passed to exit(), or -1 when a signal ended it.
    int ExitCode();

    // Everything the program wrote so far.
    std::string Stdout() const;
    std::string Stderr() const;
    // Waits until stdout holds text at or after offset `from`; the text need not end a line.
    // Returns the offset just past the match, or std::string::npos on time-out.
    size_t WaitForStdout(const std::string& text, int timeoutMs, size_t from = 0);

    // A summary for failure messages: status, stdout and stderr.
    std::string Describe();

private:
    void Reap(int options);

    std::vector<std::string> m_argv;
    std::string m_strDir;  // the output files
    pid_t m_pid = -1;
    std::mutex m_mutex;  // guards the reaped state
    bool m_bReaped = false;
    int m_iStatus = 0;
};

// Milliseconds of the monotonic clock.
long long NowMs();

}  // namespace e2e
