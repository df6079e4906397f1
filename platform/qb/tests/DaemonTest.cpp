// The daemon frame: pid file, single instance, stop requests, detaching.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <fstream>
#include <thread>

#include "Qb/Daemon.h"
#include "TestSupport.h"

using namespace Qb;
using QbTest::WaitFor;

namespace {

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path);
    std::string text;
    std::getline(in, text);
    return text;
}

bool Exists(const std::string& path)
{
    struct stat st;
    return stat(path.c_str(), &st) == 0;
}

}  // namespace

TEST(QbDaemon, PidFileRefusesASecondInstanceAndGoesOnStop)
{
    QbTest::ScratchDir dir;
    const std::string pid = dir.File("fp.pid");
    {
        CDaemon first(false, pid);
        EXPECT_EQ(std::to_string(getpid()), ReadFile(pid));

        const QbTest::ChildResult second = QbTest::RunChild([&] {
            CDaemon again(false, pid);
            return 0;  // not reached: a second instance exits
        });
        EXPECT_EQ(1, second.status);
        EXPECT_NE(std::string::npos, second.err.find("already running")) << second.err;
        EXPECT_NE(std::string::npos, second.err.find(std::to_string(getpid()))) << second.err;
        EXPECT_EQ(std::to_string(getpid()), ReadFile(pid));  // untouched by the refused one
    }
    EXPECT_FALSE(Exists(pid));

    // A pid file left behind by a dead process is not a live instance.
    std::ofstream(pid) << "999999\n";
    {
        CDaemon next(false, pid);
        EXPECT_EQ(std::to_string(getpid()), ReadFile(pid));
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
    std::thread signaller([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        kill(getpid(), SIGUSR1);
    });
    daemon.Block();
    signaller.join();

    std::thread requester([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        CDaemon::RequestStop();
    });
    daemon.Block();
    requester.join();

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
    EXPECT_EQ(0, launcher.status);  // the launching process returns at once
    std::string text;
    ASSERT_TRUE(WaitFor([&] { return !(text = ReadFile(pidPath)).empty(); }));
    const pid_t pid = static_cast<pid_t>(std::stol(text));
    ASSERT_GT(pid, 0);
    EXPECT_NE(getpid(), pid);
    EXPECT_EQ(pid, getsid(pid));  // a session of its own
    ASSERT_EQ(0, kill(pid, SIGUSR1));
    EXPECT_TRUE(WaitFor([&] { return !Exists(pidPath); }));
}
