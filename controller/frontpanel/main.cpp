// The front-panel daemon's entry point.
#include <sched.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

#include "Qb/Daemon.h"
#include "TavFrontpanel.h"
#include "Zor/ClientOpts.h"

namespace {
const char* const kPidPath = "/var/run/frontpanel.pid";
}

// Every signal installed here ends the process at once, with the signal number as its
// status; no cleanup runs and the subscriptions are not removed. _exit rather than exit:
// exit is not safe in a signal handler, it would run the static destructors while the
// keypad, timer and SDK threads still use those objects. Nothing is lost by it: stdout is
// line-buffered and every progress text is flushed when printed.
void OnSignal(int sig)
{
    _exit(sig);
}

int main(int argc, char** argv)
{
    // Line-buffered even into a pipe: the progress lines and the read-error lines are
    // written through two different paths (Qb::MyPrintf and printf), and whoever watches
    // the daemon must see each line when it happens and in the order it happened.
    setvbuf(stdout, nullptr, _IOLBF, 0);

    signal(SIGINT, OnSignal);
    signal(SIGABRT, OnSignal);
    signal(SIGFPE, OnSignal);
    signal(SIGILL, OnSignal);
    signal(SIGSEGV, OnSignal);
    signal(SIGTERM, OnSignal);
    signal(SIGHUP, OnSignal);

    Zor::CClientOpts opts(argc, argv, "", "");
    // The pid file is not configurable, whatever the command line says.
    opts.SetPidFile(kPidPath);

    // The result is ignored: without the privilege the daemon runs under the normal policy.
    struct sched_param param = {};
    param.sched_priority = sched_get_priority_min(SCHED_RR);
    (void)sched_setscheduler(0, SCHED_RR, &param);

    Qb::CDaemon daemon(opts.IsDaemon(), kPidPath);
    {
        CTavFrontpanel frontpanel;
        frontpanel.Initialize(daemon);
    }
    // The daemon object (it removes the pid file), then the options, go as main returns.
    return 0;
}
