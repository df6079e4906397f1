// Process service frame: detaching, the pid file and waiting for the stop request.
#pragma once

#include <string>

#include "Qb/Uncopyable.h"

namespace Qb {

class CDaemon : private CUncopyable {
public:
    // Detaches from the terminal when runAsDaemon is set (the launching process exits once the
    // pid file names the detached one), and takes the pid file: a pid file
    // locked by a live process means a second instance, which prints a clear message to
    // stderr and exits with status 1 (as does a pid file that cannot be created or locked).
    // The lock is flock() on the pid file, so a stale file of a dead process is taken over.
    // SIGUSR1 becomes the stop request; other signals keep their dispositions.
    CDaemon(bool runAsDaemon, const std::string& pidPath);
    // Removes the pid file (orderly stop).
    ~CDaemon();

    // Returns when the service is asked to stop (SIGUSR1); a request that came earlier, after
    // construction, is not lost.
    void Block();
    // Asks Block() to return, as SIGUSR1 does; safe from any thread.
    static void RequestStop();

    const std::string& PidPath() const { return m_strPidPath; }

private:
    std::string m_strPidPath;
    int m_iPidFd;
};

}  // namespace Qb
