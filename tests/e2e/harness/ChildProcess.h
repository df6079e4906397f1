// A program started by a test: its stdout and stderr are collected as they come, it can be
// waited for and signalled, and it is killed and reaped when the object goes, so a failing
// test never leaves a process behind.
#pragma once

#include <sys/types.h>

#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace e2e {

class CChildProcess {
public:
    // argv[0] is the program: a path, or a name looked up in PATH. env entries ("NAME=value")
    // are added to this process's environment (replacing a variable of the same name).
    explicit CChildProcess(std::vector<std::string> argv, std::vector<std::string> env = {});
    // Kills the whole process group (SIGKILL) if it still runs, reaps it and joins the reader.
    ~CChildProcess();

    CChildProcess(const CChildProcess&) = delete;
    CChildProcess& operator=(const CChildProcess&) = delete;

    // False with a message in *error when the program cannot be started.
    bool Start(std::string* error);
    pid_t Pid() const { return m_pid; }
    const std::string& Name() const { return m_argv[0]; }

    void Signal(int sig);
    // True once the process has ended (reaped); waits at most timeoutMs.
    bool WaitExit(int timeoutMs);
    bool HasExited();
    // After an exit: the status passed to exit(), or -1 when a signal ended it.
    int ExitCode();
    // After an exit: the signal that ended it, or 0.
    int TermSignal();

    // Everything the program wrote so far.
    std::string Stdout();
    std::string Stderr();
    // Waits until stdout (stderr) holds text at or after offset `from`; the text need not
    // end a line. Returns the offset just past the match, or std::string::npos on time-out.
    size_t WaitForStdout(const std::string& text, int timeoutMs, size_t from = 0);
    size_t WaitForStderr(const std::string& text, int timeoutMs, size_t from = 0);

    // A one-line summary for failure messages: status, stdout and stderr.
    std::string Describe();

private:
    void ReadLoop();
    void Reap(int options);
    size_t WaitFor(const std::string& which, const std::string& text, int timeoutMs, size_t from);

    std::vector<std::string> m_argv;
    std::vector<std::string> m_env;
    pid_t m_pid;
    int m_outFd;
    int m_errFd;
    std::thread m_reader;

    std::mutex m_mutex;  // guards the output, the status and m_pid's reaped state
    std::condition_variable m_changed;
    std::map<std::string, std::string> m_output;  // "stdout", "stderr"
    bool m_bReaped;
    bool m_bOutputDone;  // both pipes are at their end
    int m_iStatus;
};

// Milliseconds of the monotonic clock.
long long NowMs();

}  // namespace e2e
