// Start-up and shutdown of the real daemon: the system-state gate, the pid file, the stop
// paths, a second instance, the late panel and the log configuration.
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "E2eTest.h"

namespace e2e {
namespace {

const char* const kPidFile = "/var/run/frontpanel.pid";
const char* const kLogConfig = "/var/config/frontpanel-log4cpp.init";
const char* const kBuilding = "Create CTavScreenManager...\n";

class StartupTest : public CE2eTest {
protected:
    // Reads of "systemState" the daemon made so far, through the tap, in order.
    std::vector<CControllerTap::Request> StateReads() { return Tap().Find("", "systemState"); }
};

// 0 and 2 keep the daemon waiting (polling, panel untouched); 3 releases it. The value is
// changed live, as the receiver's controller would when it becomes ready.
TEST_F(StartupTest, NotReadySystemStatesHoldStartUpUntilReady)
{
    CUnitServer& unit = StartUnit();
    ASSERT_TRUE(unit.Set("systemState", ".0", 0).value("ok", false));
    CPanelEnd& panel = StartPanel();
    CChildProcess& fp = StartDaemon();

    // Wait for a run of reads rather than for wall time: a loaded machine is slow.
    for (int value : {0, 2}) {
        ASSERT_TRUE(unit.Set("systemState", ".0", value).value("ok", false));
        size_t before = StateReads().size();
        long long deadline = NowMs() + kWaitMs;
        while (StateReads().size() < before + 5 && NowMs() < deadline)
            usleep(20000);
        ASSERT_GE(StateReads().size(), before + 5) << "state " << value << ": " << fp.Describe();
        EXPECT_EQ(fp.Stdout().find(kBuilding), std::string::npos) << "state " << value;
        EXPECT_EQ(panel.Received(), "") << "state " << value;
    }

    // Polled, not spun: consecutive reads are about 100 ms apart.
    std::vector<CControllerTap::Request> reads = StateReads();
    std::vector<long long> gaps;
    for (size_t i = 1; i < reads.size(); ++i)
        gaps.push_back(reads[i].timeMs - reads[i - 1].timeMs);
    std::sort(gaps.begin(), gaps.end());
    EXPECT_GE(gaps[gaps.size() / 2], 80) << "median gap between reads";

    ASSERT_TRUE(unit.Set("systemState", ".0", 3).value("ok", false));
    EXPECT_TRUE(WaitRunning(fp)) << fp.Describe();
    // The first thing the panel gets is the display's clear command.
    EXPECT_EQ(panel.WaitForReceived("\x09\x30\x7e", kWaitMs), 3u) << testing::PrintToString(panel.Received());
    EXPECT_EQ(panel.ScreenErrors(), "");
    size_t readsWhenReady = StateReads().size();
    usleep(300000);
    EXPECT_EQ(StateReads().size(), readsWhenReady) << "the state is read no more once ready";
}

// A bad option is refused before anything starts; a second instance is refused while the
// first runs; SIGUSR1 stops the first in order. The pid file is the fixed one, whatever the
// command line asks for.
TEST_F(StartupTest, RefusalsThenUsr1StopsInOrderWithTheFixedPidFile)
{
    CChildProcess& bad = StartDaemon({"--no-such-option"});
    ASSERT_TRUE(bad.WaitExit(kWaitMs)) << bad.Describe();
    EXPECT_EQ(bad.ExitCode(), 2) << bad.Describe();
    EXPECT_NE(bad.Stderr().find("--controller"), std::string::npos) << "the usage names the options";
    EXPECT_NE(access(kPidFile, F_OK), 0);

    std::string asked = TempDir() + "/asked.pid";
    CChildProcess& fp = StartDaemon({"--pidfile", asked});
    ASSERT_TRUE(WaitRunning(fp)) << fp.Describe();
    const std::string pid = std::to_string(fp.Pid());
    EXPECT_EQ(ReadFile(kPidFile).find(pid), 0u) << ReadFile(kPidFile);
    EXPECT_NE(access(asked.c_str(), F_OK), 0);

    CChildProcess& second = StartDaemon();
    ASSERT_TRUE(second.WaitExit(kWaitMs)) << second.Describe();
    EXPECT_EQ(second.ExitCode(), 1) << second.Describe();
    EXPECT_NE(second.Stderr().find(pid), std::string::npos) << "the refusal names the running instance";
    EXPECT_EQ(second.Stdout().find("Initialize: Exit"), std::string::npos);
    EXPECT_EQ(ReadFile(kPidFile).find(pid), 0u) << ReadFile(kPidFile);

    ASSERT_TRUE(StopDaemon(fp)) << fp.Describe();
    EXPECT_EQ(fp.ExitCode(), 0) << fp.Describe();
    // The two cleanup texts carry no newline of their own.
    std::string out = fp.Stdout();
    size_t exitAt = out.find("Initialize: Exit\n");
    EXPECT_EQ(out.find("Cleaning up front panelCleanup complete", exitAt), exitAt + 17) << out;
    EXPECT_NE(access(kPidFile, F_OK), 0);
}

// Unsubscribe requests for a name with the all-instances pattern.
size_t AllInstanceUnsubscribes(CControllerTap& tap, const std::string& name)
{
    size_t n = 0;
    for (const CControllerTap::Request& r : tap.Find("unsubscribe", name)) {
        std::string instance = r.json.value("instance", "");
        n += instance == ".%" || instance == "%";
    }
    return n;
}

// A ready system state (1 on the unit) lets start-up go on after the first read. The stop
// removes the "updateStart" subscription and then names the image-update sink for
// "profileApplyProfileState" as well, so the controller keeps the profile-apply
// subscription for as long as the client lives: the tap sees no request ending it.
TEST_F(StartupTest, ReadyStartAtOnceAndOrderlyStopKeepsTheProfileApplySubscription)
{
    StartUnit();
    CChildProcess& fp = StartDaemon();
    ASSERT_TRUE(WaitRunning(fp)) << fp.Describe();
    EXPECT_EQ(StateReads().size(), 1u);
    // Start-up subscribes both sinks; a lost subscription is a failure, not a skip.
    for (int ms = 0; ms < kWaitMs && Tap().Find("subscribe", "updateStart").empty(); ms += 20)
        usleep(20 * 1000);
    ASSERT_EQ(Tap().Find("subscribe", "updateStart").size(), 1u);
    EXPECT_EQ(Tap().Find("subscribe", "profileApplyProfileState").size(), 1u);

    ASSERT_TRUE(StopDaemon(fp)) << fp.Describe();
    EXPECT_EQ(fp.ExitCode(), 0) << fp.Describe();
    EXPECT_EQ(AllInstanceUnsubscribes(Tap(), "updateStart"), 1u);
    EXPECT_EQ(AllInstanceUnsubscribes(Tap(), "profileApplyProfileState"), 0u);
}

// These signals end the daemon on the spot: the status is the signal number and no
// cleanup runs.
TEST_F(StartupTest, TerminatingSignalsExitWithTheirNumberAndNoCleanup)
{
    for (int sig : {SIGTERM, SIGINT, SIGHUP}) {
        CChildProcess& fp = StartDaemon();
        ASSERT_TRUE(WaitRunning(fp)) << fp.Describe();
        fp.Signal(sig);
        ASSERT_TRUE(fp.WaitExit(kWaitMs)) << fp.Describe();
        EXPECT_EQ(fp.ExitCode(), sig) << fp.Describe();
        EXPECT_EQ(fp.Stdout().find("Cleaning up"), std::string::npos) << fp.Describe();
        EXPECT_EQ(access(kPidFile, F_OK), 0) << "nothing is cleaned up, not even the pid file";
        unlink(kPidFile);
    }
}

// The socket library retries the panel from the keypad's reads, so a ttyhub that comes up
// after the daemon, or comes back after a restart, still gets its connection and is shown
// the current screen without a key; keys then flow and the stop still joins the keypad's
// threads in order.
TEST_F(StartupTest, APanelThatAppearsLaterOrComesBackIsShownTheScreen)
{
    CChildProcess& fp = StartDaemon();
    ASSERT_TRUE(WaitRunning(fp)) << fp.Describe();
    CPanelEnd& panel = StartPanel();
    ASSERT_TRUE(panel.WaitForConnections(1, kWaitMs)) << fp.Describe();
    const std::string clear = "\x09\x30\x7e";
    ASSERT_NE(panel.WaitForReceived(clear, 2000), std::string::npos)
        << testing::PrintToString(panel.Received());
    // The home page; its bit rate may move, the other rows stay.
    auto shown = [&panel] {
        bool all = true;
        for (const char* text : {"Uplink IRD 3", "Input: DVB-S2", "IP: 10.20.4.31", "Service: News 24 HD"})
            all = panel.WaitForScreen(text, 2000) && all;
        return all;
    };
    ASSERT_TRUE(shown()) << panel.Screen();

    size_t from = panel.Received().size();
    panel.Drop();
    ASSERT_TRUE(panel.WaitForConnections(2, kWaitMs)) << fp.Describe();
    ASSERT_NE(panel.WaitForReceived(clear, 2000, from), std::string::npos) << "no key pressed";
    EXPECT_TRUE(shown()) << panel.Screen();
    EXPECT_EQ(panel.ScreenErrors(), "");

    for (int key : {CPanelEnd::KEY_DOWN, CPanelEnd::KEY_ENTER, CPanelEnd::KEY_EXIT})
        EXPECT_TRUE(panel.Press(key));
    EXPECT_TRUE(panel.SendKey(CPanelEnd::KEY_LEFT, CPanelEnd::STATE_DOWN));  // held during the stop
    ASSERT_TRUE(StopDaemon(fp)) << fp.Describe();
    EXPECT_EQ(fp.ExitCode(), 0) << fp.Describe();
    EXPECT_NE(fp.Stdout().find("Cleanup complete"), std::string::npos) << fp.Describe();
}

// A missing or unreadable log configuration leaves the default logging; a valid one is
// used, and the daemon's category reaches its appender.
TEST_F(StartupTest, LogConfigurationIsOptionalAndHonoured)
{
    const std::string broken[] = {"", "appender tav.frontpanel basic nosuchappender\n", "\x01\x02 garbage\n"};
    for (const std::string& text : broken) {
        unlink(kLogConfig);
        if (!text.empty())
            std::ofstream(kLogConfig) << text;
        CChildProcess& fp = StartDaemon();
        ASSERT_TRUE(WaitRunning(fp)) << testing::PrintToString(text) << ": " << fp.Describe();
        ASSERT_TRUE(StopDaemon(fp)) << fp.Describe();
        EXPECT_EQ(fp.ExitCode(), 0) << fp.Describe();
    }

    std::string log = TempDir() + "/frontpanel.log";
    std::ofstream(kLogConfig) << "# daemon log\nappender tav.frontpanel basic file " << log
                              << "\npriority tav.frontpanel DEBUG\n";
    CChildProcess& fp = StartDaemon();
    ASSERT_TRUE(WaitRunning(fp)) << fp.Describe();
    ASSERT_TRUE(StopDaemon(fp)) << fp.Describe();
    std::string lines = ReadFile(log);
    EXPECT_NE(lines.find("tav.frontpanel : Initialize: system state"), std::string::npos) << lines;
}

}  // namespace
}  // namespace e2e
