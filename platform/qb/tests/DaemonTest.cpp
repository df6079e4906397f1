// The daemon frame: pid file, single instance, stop requests, detaching.
#include <gtest/gtest.h>
#include <signal.h>

#include <fstream>
#include <thread>

#include "Qb/Daemon.h"
#include "TestSupport.h"

using namespace Qb;
using QbTest::WaitFor;

namespace {

std::string FirstLine(const std::string& path)
{
    std::ifstream in(path);
    std::string text;
    std::getline(in, text);
    return text;
}

bool Exists(const std::string& path)
{
    return access(path.c_str(), F_OK) == 0;
}

}  // namespace

TEST(QbDaemon, PidFileRefusesASecondInstanceAndGoesOnStop)
{
    QbTest::ScratchDir dir;
    const std::string pid = dir.File("fp.pid"), me = std::to_string(getpid());
    {
        CDaemon first(false, pid);
        EXPECT_EQ(me, FirstLine(pid));
        const QbTest::ChildResult second = QbTest::RunChild([&] {
            CDaemon again(false, pid);
            return 0;  // not reached: a second instance exits
        });
        EXPECT_EQ(1, second.status);
        EXPECT_NE(std::string::npos, second.err.find("already running (pid " + me)) << second.err;
        EXPECT_EQ(me, FirstLine(pid));  // untouched by the refused one
    }
    EXPECT_FALSE(Exists(pid));

    std::ofstream(pid) << "999999\n";  // left behind by a dead process: not a live instance
    {
        CDaemon next(false, pid);
        EXPECT_EQ(me, FirstLine(pid));
    }
    EXPECT_FALSE(Exists(pid));

    const QbTest::ChildResult bad = QbTest::RunChild([&] {
        CDaemon nowhere(false, dir.File("no/such/dir/fp.pid"));
        return 0;
    });
    EXPECT_EQ(1, bad.status);
    EXPECT_NE(std::string::npos, bad.err.find("no/such/dir/fp.pid")) << bad.err;
}

TEST(QbDaemon, BlockEndsOnSigusr1OrRequestStop)
{
    QbTest::ScratchDir dir;
    CDaemon daemon(false, dir.File("fp.pid"));
    for (bool bySignal : {true, false}) {
        std::thread stopper([bySignal] {
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
            bySignal ? (void)kill(getpid(), SIGUSR1) : CDaemon::RequestStop();
        });
        daemon.Block();
        stopper.join();
    }
    CDaemon::RequestStop();  // a request made before Block() is not lost
    daemon.Block();
}

TEST(QbDaemon, DetachedInstanceWritesItsPidAndStopsOnSigusr1)
{
    QbTest::ScratchDir dir;
    const std::string pidPath = dir.File("fp.pid");
    const QbTest::ChildResult launcher = QbTest::RunChild([&] {
        {
            CDaemon daemon(true, pidPath);  // only the detached process gets past this
            daemon.Block();
        }
        _exit(0);
        return 0;
    });
    EXPECT_EQ(0, launcher.status);
    // A service manager reads the pid file the moment the launcher returns.
    const std::string text = FirstLine(pidPath);
    ASSERT_FALSE(text.empty()) << "the launcher returned before the pid file named the daemon";
    const pid_t pid = static_cast<pid_t>(std::stol(text));
    EXPECT_NE(getpid(), pid);
    EXPECT_EQ(pid, getsid(pid));  // a session of its own
    ASSERT_EQ(0, kill(pid, SIGUSR1));
    EXPECT_TRUE(WaitFor([&] { return !Exists(pidPath); }));
}
