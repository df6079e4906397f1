#include "ChildProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

extern char** environ;

namespace e2e {

long long NowMs()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

CChildProcess::CChildProcess(std::vector<std::string> argv) : m_argv(std::move(argv)) {}

CChildProcess::~CChildProcess()
{
    if (m_pid > 0 && !HasExited()) {
        kill(-m_pid, SIGKILL);  // the whole group: it may have started children of its own
        kill(m_pid, SIGKILL);
        Reap(0);
    }
    std::error_code ec;
    if (!m_strDir.empty())
        std::filesystem::remove_all(m_strDir, ec);
}

bool CChildProcess::Start(std::string* error)
{
    char dir[] = "/tmp/fp-child.XXXXXX";
    if (mkdtemp(dir) == nullptr) {
        *error = std::string("no folder for the output of ") + m_argv[0] + ": " + std::strerror(errno);
        return false;
    }
    m_strDir = dir;
    const std::string out = m_strDir + "/stdout", err = m_strDir + "/stderr";
    std::vector<char*> argv;
    for (std::string& a : m_argv)
        argv.push_back(&a[0]);
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    // Its own process group, so it and anything it starts can be killed together; default
    // signal handling and no signal blocked, whatever the test process has set.
    posix_spawnattr_t attr;
    posix_spawnattr_init(&attr);
    sigset_t all, none;
    sigfillset(&all);
    sigemptyset(&none);
    posix_spawnattr_setpgroup(&attr, 0);
    posix_spawnattr_setsigdefault(&attr, &all);
    posix_spawnattr_setsigmask(&attr, &none);
    posix_spawnattr_setflags(&attr, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    const int rc = posix_spawnp(&m_pid, argv[0], &actions, &attr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attr);
    if (rc != 0) {
        m_pid = -1;
        *error = "cannot start " + m_argv[0] + ": " + std::strerror(rc);
    }
    return rc == 0;
}

void CChildProcess::Reap(int options)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_bReaped && m_pid > 0 && waitpid(m_pid, &m_iStatus, options) == m_pid)
        m_bReaped = true;
}

void CChildProcess::Signal(int sig)
{
    if (m_pid > 0 && !HasExited())
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
    const long long end = NowMs() + timeoutMs;
    while (!HasExited()) {
        if (NowMs() >= end)
            return false;
        usleep(5000);
    }
    return true;
}

int CChildProcess::ExitCode()
{
    return HasExited() && WIFEXITED(m_iStatus) ? WEXITSTATUS(m_iStatus) : -1;
}

namespace {

std::string ReadAll(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

std::string CChildProcess::Stdout() const
{
    return m_strDir.empty() ? std::string() : ReadAll(m_strDir + "/stdout");
}

std::string CChildProcess::Stderr() const
{
    return m_strDir.empty() ? std::string() : ReadAll(m_strDir + "/stderr");
}

size_t CChildProcess::WaitForStdout(const std::string& text, int timeoutMs, size_t from)
{
    const long long end = NowMs() + timeoutMs;
    for (;;) {
        const std::string out = Stdout();
        const size_t at = from <= out.size() ? out.find(text, from) : std::string::npos;
        if (at != std::string::npos)
            return at + text.size();
        if (NowMs() >= end)
            return std::string::npos;
        usleep(5000);
    }
}

std::string CChildProcess::Describe()
{
    std::ostringstream s;
    s << m_argv[0] << " (pid " << m_pid << "): ";
    if (!HasExited())
        s << "still running";
    else if (WIFSIGNALED(m_iStatus))
        s << "killed by signal " << WTERMSIG(m_iStatus);
    else
        s << "exit status " << ExitCode();
    s << "\n--- stdout ---\n" << Stdout() << "\n--- stderr ---\n" << Stderr() << "\n---";
    return s.str();
}

}  // namespace e2e
