#include "ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <sstream>

extern char** environ;

namespace e2e {

long long NowMs()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

CChildProcess::CChildProcess(std::vector<std::string> argv, std::vector<std::string> env)
    : m_argv(std::move(argv)),
      m_env(std::move(env)),
      m_pid(-1),
      m_outFd(-1),
      m_errFd(-1),
      m_bReaped(false),
      m_bOutputDone(false),
      m_iStatus(0)
{
}

CChildProcess::~CChildProcess()
{
    if (m_pid > 0 && !HasExited()) {
        kill(-m_pid, SIGKILL);  // the whole group: it may have started children of its own
        kill(m_pid, SIGKILL);
        Reap(0);
    }
    if (m_reader.joinable())
        m_reader.join();
    if (m_outFd >= 0)
        close(m_outFd);
    if (m_errFd >= 0)
        close(m_errFd);
}

bool CChildProcess::Start(std::string* error)
{
    int out[2];
    int err[2];
    if (pipe2(out, O_CLOEXEC) != 0 || pipe2(err, O_CLOEXEC) != 0) {
        *error = std::string("pipe: ") + std::strerror(errno);
        return false;
    }

    // The environment: ours, with the extra entries replacing same-named ones.
    std::vector<std::string> envText;
    for (char** e = environ; *e != nullptr; ++e) {
        std::string entry(*e);
        std::string name = entry.substr(0, entry.find('='));
        bool replaced = false;
        for (const std::string& extra : m_env)
            replaced = replaced || extra.substr(0, extra.find('=')) == name;
        if (!replaced)
            envText.push_back(entry);
    }
    envText.insert(envText.end(), m_env.begin(), m_env.end());
    std::vector<char*> envp;
    for (std::string& e : envText)
        envp.push_back(&e[0]);
    envp.push_back(nullptr);
    std::vector<char*> argvp;
    for (std::string& a : m_argv)
        argvp.push_back(&a[0]);
    argvp.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out[1], 1);
    posix_spawn_file_actions_adddup2(&actions, err[1], 2);
    posix_spawnattr_t attr;
    posix_spawnattr_init(&attr);
    // Its own process group, so it and anything it starts can be killed together; default
    // signal handling, whatever the test process has set.
    posix_spawnattr_setpgroup(&attr, 0);
    sigset_t all;
    sigfillset(&all);
    posix_spawnattr_setsigdefault(&attr, &all);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attr, &none);
    posix_spawnattr_setflags(&attr, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);

    pid_t pid = -1;
    int rc = posix_spawnp(&pid, argvp[0], &actions, &attr, argvp.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attr);
    close(out[1]);
    close(err[1]);
    if (rc != 0) {
        close(out[0]);
        close(err[0]);
        *error = "cannot start " + m_argv[0] + ": " + std::strerror(rc);
        return false;
    }
    m_pid = pid;
    m_outFd = out[0];
    m_errFd = err[0];
    m_reader = std::thread(&CChildProcess::ReadLoop, this);
    return true;
}

void CChildProcess::ReadLoop()
{
    struct pollfd fds[2] = {{m_outFd, POLLIN, 0}, {m_errFd, POLLIN, 0}};
    const char* names[2] = {"stdout", "stderr"};
    int open = 2;
    while (open > 0) {
        if (poll(fds, 2, -1) < 0) {
            if (errno == EINTR)
                continue;
            break;
        }
        for (int i = 0; i < 2; ++i) {
            if (fds[i].fd < 0 || fds[i].revents == 0)
                continue;
            char buf[4096];
            ssize_t n = read(fds[i].fd, buf, sizeof buf);
            if (n > 0) {
                std::lock_guard<std::mutex> lock(m_mutex);
                m_output[names[i]].append(buf, static_cast<size_t>(n));
                m_changed.notify_all();
            } else if (n == 0 || errno != EINTR) {
                fds[i].fd = -1;  // poll ignores it from now on
                --open;
            }
        }
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    m_bOutputDone = true;
    m_changed.notify_all();
}

void CChildProcess::Reap(int options)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_bReaped || m_pid <= 0)
        return;
    int status = 0;
    pid_t r = waitpid(m_pid, &status, options);
    if (r == m_pid) {
        m_bReaped = true;
        m_iStatus = status;
        m_changed.notify_all();
    }
}

void CChildProcess::Signal(int sig)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_pid > 0 && !m_bReaped)
        kill(m_pid, sig);
}

bool CChildProcess::HasExited()
{
    Reap(WNOHANG);
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_bReaped;
}

bool CChildProcess::WaitExit(int timeoutMs)
{
    long long end = NowMs() + timeoutMs;
    while (!HasExited()) {
        if (NowMs() >= end)
            return false;
        usleep(5000);
    }
    // The output is complete once both pipes are at their end; a child the program left
    // behind may hold them open, so that wait is bounded.
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, std::chrono::milliseconds(2000), [this] { return m_bOutputDone; });
    return true;
}

int CChildProcess::ExitCode()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_bReaped && WIFEXITED(m_iStatus) ? WEXITSTATUS(m_iStatus) : -1;
}

int CChildProcess::TermSignal()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_bReaped && WIFSIGNALED(m_iStatus) ? WTERMSIG(m_iStatus) : 0;
}

std::string CChildProcess::Stdout()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_output["stdout"];
}

std::string CChildProcess::Stderr()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_output["stderr"];
}

size_t CChildProcess::WaitFor(const std::string& which, const std::string& text, int timeoutMs, size_t from)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    for (;;) {
        const std::string& out = m_output[which];
        size_t at = from <= out.size() ? out.find(text, from) : std::string::npos;
        if (at != std::string::npos)
            return at + text.size();
        if (std::chrono::steady_clock::now() >= deadline)
            return std::string::npos;
        m_changed.wait_until(lock, deadline);
    }
}

size_t CChildProcess::WaitForStdout(const std::string& text, int timeoutMs, size_t from)
{
    return WaitFor("stdout", text, timeoutMs, from);
}

size_t CChildProcess::WaitForStderr(const std::string& text, int timeoutMs, size_t from)
{
    return WaitFor("stderr", text, timeoutMs, from);
}

std::string CChildProcess::Describe()
{
    bool exited = HasExited();
    std::ostringstream s;
    s << m_argv[0] << " (pid " << m_pid << "): ";
    if (!exited)
        s << "still running";
    else if (TermSignal() != 0)
        s << "killed by signal " << TermSignal();
    else
        s << "exit status " << ExitCode();
    s << "\n--- stdout ---\n" << Stdout() << "\n--- stderr ---\n" << Stderr() << "\n---";
    return s.str();
}

}  // namespace e2e
