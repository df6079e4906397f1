// zorctl against a live unitd, as a person or a script would run it.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "ChildProcess.h"
#include "Controller.h"

namespace {

struct Run_t {
    int status;
    std::string out;  // stdout and stderr together
};

Run_t Zorctl(const std::string& args)
{
    std::string cmd = std::string(ZORCTL_PATH) + " " + args + " 2>&1";
    FILE* p = popen(cmd.c_str(), "r");
    Run_t run{-1, ""};
    char buf[512];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, p)) > 0) {
        run.out.append(buf, n);
    }
    int status = pclose(p);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

class ZorctlLive : public testing::Test {
protected:
    void SetUp() override
    {
        std::string error;
        ASSERT_TRUE(m_unitd.Start(&error)) << error;
    }
    std::string Sock() { return "--socket " + m_unitd.SocketPath() + " "; }
    e2e::CUnitServer m_unitd{UNIT_TEST_FILES "/small.json"};
};

}  // namespace

TEST_F(ZorctlLive, GetsValuesForPeopleAndScripts)
{
    Run_t r = Zorctl(Sock() + "get unitAlias.0 tsinputsrcLabel.%");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(
        r.out,
        "unitAlias.0 = \"IRD-01\"\ntsinputsrcLabel.1.1 = \"ASI\"\ntsinputsrcLabel.2.1 = \"DVB-S2 1\"\n");
    r = Zorctl(Sock() + "--json get tsinputsrcBitRate");
    EXPECT_EQ(r.out, "{\"tsinputsrcBitRate\":{\".1.1\":38014946,\".2.1\":0}}\n");
    r = Zorctl(Sock() + "get unitAlias.0 unitAlias.9 nothing");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(
        r.out,
        "unitAlias.0 = \"IRD-01\"\nzorctl: no such object: unitAlias.9\nzorctl: no such object: nothing.%\n");
}

TEST_F(ZorctlLive, SetsRefusesAndForcesAndKeepsTheJournal)
{
    EXPECT_EQ(Zorctl(Sock() + "set frontpanelLockMode.0 2").out, "frontpanelLockMode.0 set\n");
    Run_t r = Zorctl(Sock() + "set dvbs2ssconfigModulation.1.1 16APSK");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "zorctl: dvbs2ssconfigModulation: \"16APSK\" is not one of QPSK, 8PSK, Auto\n");
    EXPECT_EQ(Zorctl(Sock() + "set tsinputsrcBitRate.1.1 0").status, 1);
    EXPECT_EQ(Zorctl(Sock() + "set tsinputsrcBitRate.1.1 0 --force").status, 0);
    r = Zorctl(Sock() + "--json set unitAlias.0 ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "{\"ok\":false,\"msg\":\"unitAlias: value too long\"}\n");

    r = Zorctl(Sock() + "writes --since 2");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(
        r.out,
        "#2 zorctl dvbs2ssconfigModulation.1.1 = \"16APSK\"  refused: dvbs2ssconfigModulation: \"16APSK\" is "
        "not one of QPSK, 8PSK, Auto\n"
        "#3 zorctl tsinputsrcBitRate.1.1 = \"0\"  refused: tsinputsrcBitRate is read-only\n"
        "#4 zorctl tsinputsrcBitRate.1.1 = \"0\"\n"
        "#5 zorctl unitAlias.0 = \"ABCDEFGHIJKLMNOPQRSTUVWXYZ\"  refused: unitAlias: value too long\n");
    EXPECT_EQ(Zorctl(Sock() + "get tsinputsrcBitRate.1.1").out, "tsinputsrcBitRate.1.1 = 0\n");
}

TEST_F(ZorctlLive, ListsSubsystems)
{
    EXPECT_EQ(Zorctl(Sock() + "subsystems").out, "Decoder: .1.2\nCamSlot: .1 .2\n");
    EXPECT_EQ(Zorctl(Sock() + "--json subsystems CamSlot").out, "{\"CamSlot\":[\".1\",\".2\"]}\n");
    Run_t r = Zorctl(Sock() + "subsystems Esam");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "zorctl: none of these subsystems is fitted\n");
}

TEST_F(ZorctlLive, WatchPrintsChangesUntilInterrupted)
{
    e2e::CChildProcess watch({ZORCTL_PATH, "--socket", m_unitd.SocketPath(), "--json", "watch", "unitAlias"});
    std::string error;
    ASSERT_TRUE(watch.Start(&error)) << error;
    // Write until the watcher has subscribed and shows the change.
    bool seen = false;
    for (int i = 0; i < 50 && !seen; ++i) {
        Zorctl(Sock() + "set unitAlias.0 W" + std::to_string(i));
        seen = watch.WaitForStdout("\n", 100) != std::string::npos;
    }
    EXPECT_EQ(watch.Stdout().compare(0, 58, R"({"event":"change","name":"unitAlias","instance":".0","valu)"),
              0)
        << watch.Describe();
    watch.Signal(SIGINT);
    ASSERT_TRUE(watch.WaitExit(20000));
    EXPECT_EQ(watch.ExitCode(), 0) << watch.Describe();
}

TEST(Zorctl, FailsClearlyWithoutAUnitdOrWithABadCommandLine)
{
    Run_t r = Zorctl("--socket /nonexistent.sock get unitAlias.0");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "zorctl: cannot reach unitd at /nonexistent.sock: No such file or directory\n");
    r = Zorctl("--socket /x.sock frobnicate");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out.compare(0, 36, "zorctl: unknown command \"frobnicate\""), 0) << r.out;
    EXPECT_EQ(Zorctl("--socket /x.sock set unitAlias.0").status, 2);
    EXPECT_EQ(Zorctl("get unitAlias.0").status == 2, std::getenv("UNITD_SOCKET") == nullptr);
    EXPECT_EQ(Zorctl("--help").status, 0);
}

// A behaviour setting is shown, set and refused from the command line; what the unit does
// with it is checked where the unit is tested.
TEST_F(ZorctlLive, BehaviourSettingsAreShownAndSet)
{
    EXPECT_EQ(Zorctl(Sock() + "behave updateCompletionCode").out, "updateCompletionCode = (unset)\n");
    EXPECT_EQ(Zorctl(Sock() + "behave updateCompletionCode 2").out, "updateCompletionCode = 2\n");
    EXPECT_EQ(Zorctl(Sock() + "behave updateCompletionCode").out, "updateCompletionCode = 2\n");
    Run_t r = Zorctl(Sock() + "behave updateCompletionCode fail");
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.out.find("is not a number"), std::string::npos);
}
