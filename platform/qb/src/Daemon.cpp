#include "Qb/Daemon.h"

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

namespace Qb {

namespace {

// Self-pipe: the SIGUSR1 handler and RequestStop() write a byte, Block() reads it. Created
// once per process and never closed, so a late signal always finds it.
int g_stopPipe[2] = {-1, -1};
std::once_flag g_stopPipeOnce;

void MakeStopPipe()
{
    if (pipe2(g_stopPipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        std::fprintf(stderr, "%s: cannot create the stop pipe: %s\n", program_invocation_short_name,
                     std::strerror(errno));
        std::exit(1);
    }
}

void WriteStopByte()
{
    const int saved = errno;
    const char byte = 1;
    // A full pipe already holds a pending stop request; nothing is lost.
    ssize_t rc;
    do {
        rc = ::write(g_stopPipe[1], &byte, 1);
    } while (rc < 0 && errno == EINTR);
    errno = saved;
}

extern "C" void OnStopSignal(int)
{
    WriteStopByte();
}

void DrainStopPipe()
{
    char buf[64];
    while (::read(g_stopPipe[0], buf, sizeof buf) > 0) {
    }
}

[[noreturn]] void Fail(const std::string& what, const std::string& path, int err)
{
    std::fprintf(stderr, "%s: %s %s: %s\n", program_invocation_short_name, what.c_str(), path.c_str(),
                 std::strerror(err));
    std::exit(1);
}

// The pid file must stay reachable after the working directory changes to "/".
std::string Absolute(const std::string& path)
{
    if (path.empty() || path[0] == '/')
        return path;
    char cwd[4096];
    if (getcwd(cwd, sizeof cwd) == nullptr)
        return path;
    return std::string(cwd) + "/" + path;
}

// Forks; the parent stays until the child reports through the returned pipe (ReportReady)
// that the pid file names it, so whoever started the daemon (a service manager that reads
// the pid file as soon as the launcher exits) never finds the file missing or stale. The
// parent exits 0 on the report, 1 when the child died first. Returns the child's end.
int Detach()
{
    int ready[2];
    if (pipe2(ready, O_CLOEXEC) != 0) {
        std::fprintf(stderr, "%s: cannot detach: %s\n", program_invocation_short_name, std::strerror(errno));
        std::exit(1);
    }
    const pid_t pid = fork();
    if (pid < 0) {
        std::fprintf(stderr, "%s: cannot detach: %s\n", program_invocation_short_name, std::strerror(errno));
        std::exit(1);
    }
    if (pid > 0) {
        ::close(ready[1]);
        char byte = 0;
        ssize_t n;
        do {
            n = ::read(ready[0], &byte, 1);
        } while (n < 0 && errno == EINTR);
        _exit(n == 1 ? 0 : 1);  // the parent returns to the shell; the child carries on
    }
    ::close(ready[0]);
    setsid();
    if (chdir("/") != 0) {
        // Not fatal: the daemon only uses absolute paths.
    }
    std::fflush(nullptr);
    const int null = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (null >= 0) {
        dup2(null, STDIN_FILENO);
        dup2(null, STDOUT_FILENO);
        dup2(null, STDERR_FILENO);
        if (null > STDERR_FILENO)
            ::close(null);
    }
    return ready[1];
}

void ReportReady(int fd)
{
    if (fd < 0)
        return;
    const char byte = 1;
    if (::write(fd, &byte, 1) != 1) {
        // The parent is gone already; nobody is waiting for the report.
    }
    ::close(fd);
}

}  // namespace

CDaemon::CDaemon(bool runAsDaemon, const std::string& pidPath) : m_strPidPath(Absolute(pidPath)), m_iPidFd(-1)
{
    std::call_once(g_stopPipeOnce, MakeStopPipe);
    DrainStopPipe();

    // The lock is taken before detaching so that a refused second instance still has a
    // terminal to print on. flock() belongs to the open file, which the detached child
    // shares, so the lock outlives the parent's exit.
    m_iPidFd = ::open(m_strPidPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (m_iPidFd < 0)
        Fail("cannot open the pid file", m_strPidPath, errno);
    if (flock(m_iPidFd, LOCK_EX | LOCK_NB) != 0) {
        const int err = errno;
        if (err != EWOULDBLOCK)
            Fail("cannot lock the pid file", m_strPidPath, err);
        char text[32] = {0};
        const ssize_t n = ::pread(m_iPidFd, text, sizeof text - 1, 0);
        const long other = n > 0 ? std::strtol(text, nullptr, 10) : 0;
        std::fprintf(stderr, "%s: already running (pid %ld, pid file %s); not starting a second instance\n",
                     program_invocation_short_name, other, m_strPidPath.c_str());
        std::exit(1);
    }

    const int ready = runAsDaemon ? Detach() : -1;

    // Whoever reads the pid file may signal at once: the handler must be in place first.
    struct sigaction sa;
    std::memset(&sa, 0, sizeof sa);
    sa.sa_handler = OnStopSignal;
    sigemptyset(&sa.sa_mask);
    sa.sa_flags = SA_RESTART;
    sigaction(SIGUSR1, &sa, nullptr);

    char text[32];
    const int len = std::snprintf(text, sizeof text, "%ld\n", static_cast<long>(getpid()));
    if (ftruncate(m_iPidFd, 0) != 0 || ::pwrite(m_iPidFd, text, static_cast<size_t>(len), 0) != len)
        Fail("cannot write the pid file", m_strPidPath, errno);
    ReportReady(ready);
}

CDaemon::~CDaemon()
{
    if (m_iPidFd >= 0) {
        // Unlink while still holding the lock, so a new instance's fresh file is never removed.
        ::unlink(m_strPidPath.c_str());
        ::close(m_iPidFd);
    }
}

void CDaemon::Block()
{
    pollfd pfd;
    pfd.fd = g_stopPipe[0];
    pfd.events = POLLIN;
    for (;;) {
        pfd.revents = 0;
        const int rc = ::poll(&pfd, 1, -1);
        if (rc < 0 && errno != EINTR)
            break;
        char byte;
        if (rc > 0 && ::read(g_stopPipe[0], &byte, 1) == 1)
            break;
    }
    DrainStopPipe();
}

void CDaemon::RequestStop()
{
    std::call_once(g_stopPipeOnce, MakeStopPipe);
    WriteStopByte();
}

}  // namespace Qb
