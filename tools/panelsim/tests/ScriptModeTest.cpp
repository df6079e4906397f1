// Script mode on the real program, with the test playing the daemon's end of the socket.
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "ChildProcess.h"
#include "UnixSocket.h"

namespace {

// The daemon's end: connects to panelsim, sends display commands, reads key reports.
class CFakeDaemon {
public:
    explicit CFakeDaemon(const std::string& path)
    {
        for (int attempt = 0; attempt < 250 && m_iFd < 0; ++attempt) {
            if ((m_iFd = e2e::ConnectUnix(path)) < 0)
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }
    ~CFakeDaemon()
    {
        if (m_iFd >= 0)
            close(m_iFd);
    }

    bool Connected() const { return m_iFd >= 0; }
    void Send(const std::string& bytes) { ASSERT_TRUE(e2e::SendAll(m_iFd, bytes)); }

    // Reads until `count` bytes came or the peer closed / went quiet for 10 s.
    std::string Receive(size_t count)
    {
        std::string bytes;
        while (bytes.size() < count) {
            pollfd fd = {m_iFd, POLLIN, 0};
            char buffer[256];
            const ssize_t got = poll(&fd, 1, 10000) > 0
                                    ? recv(m_iFd, buffer, std::min(sizeof buffer, count - bytes.size()), 0)
                                    : 0;
            if (got <= 0)
                break;
            bytes.append(buffer, static_cast<size_t>(got));
        }
        return bytes;
    }

private:
    int m_iFd = -1;
};

std::string Row(int row, const std::string& text)
{
    return std::string("\tY") + static_cast<char>(row) + "\tX" + '\0' + "\tT" + text + "~";
}

std::string Key(int key, int state)
{
    return std::string("\tK") + static_cast<char>(key) + static_cast<char>(state) + "~";
}

class ScriptModeTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        char dir[] = "/tmp/panelsimXXXXXX";
        ASSERT_NE(nullptr, mkdtemp(dir));
        m_strDir = dir;
        m_strSocket = m_strDir + "/panel.socket";
    }

    void TearDown() override
    {
        m_pPanelsim.reset();
        std::error_code ec;
        std::filesystem::remove_all(m_strDir, ec);
    }

    void Start(const std::string& script, std::vector<std::string> extra = {})
    {
        std::ofstream(m_strDir + "/script") << script;
        std::vector<std::string> args;
        std::stringstream emulator(PANELSIM_EMULATOR);
        for (std::string word; std::getline(emulator, word, '|');)
            args.push_back(word);
        args.insert(args.end(), {PANELSIM_BIN, "--socket", m_strSocket, "--script", m_strDir + "/script"});
        args.insert(args.end(), extra.begin(), extra.end());
        m_pPanelsim.reset(new e2e::CChildProcess(args));
        std::string error;
        ASSERT_TRUE(m_pPanelsim->Start(&error)) << error;
    }

    // The exit status, or -1 when panelsim did not end within 20 s.
    int Finish() { return m_pPanelsim->WaitExit(20000) ? m_pPanelsim->ExitCode() : -1; }
    std::string Out() { return m_pPanelsim->Stdout(); }
    std::string Err() { return m_pPanelsim->Stderr(); }

    std::string m_strDir;
    std::string m_strSocket;
    std::unique_ptr<e2e::CChildProcess> m_pPanelsim;
};

TEST_F(ScriptModeTest, PassingScriptSendsKeysAndReportsTheScreen)
{
    Start(
        "# a whole session\n"
        "connect 5000\n"
        "expect row 1 \"Hello panel\"   # trailing blanks do not count\n"
        "expect text \"lo pa\" 1000\n"
        "press ENTER\n"
        "hold UP 300\n"
        "combo LEFT RIGHT 100\n"
        "down exit\n"
        "up EXIT\n"
        "expect-not text \"Goodbye\" 100\n"
        "errors 1\n"
        "dump\n");
    CFakeDaemon daemon(m_strSocket);
    ASSERT_TRUE(daemon.Connected());
    daemon.Send("\t0~" + Row(1, "Hello panel") + "\tQ~");

    EXPECT_EQ(Key(6, 1) + Key(6, 2) + Key(2, 1), daemon.Receive(15));
    const auto held = std::chrono::steady_clock::now();
    EXPECT_EQ(Key(2, 2), daemon.Receive(5));
    EXPECT_GE(std::chrono::steady_clock::now() - held, std::chrono::milliseconds(250));
    EXPECT_EQ(Key(1, 1) + Key(3, 1) + Key(1, 2) + Key(3, 2) + Key(5, 1) + Key(5, 2), daemon.Receive(30));
    EXPECT_EQ(0, Finish()) << Err();
    EXPECT_NE(std::string::npos, Out().find("|Hello panel                   |\n")) << Out();
    EXPECT_NE(std::string::npos, Err().find("unknown command byte 0x51")) << Err();
}

TEST_F(ScriptModeTest, FailedExpectationNamesTheLineAndShowsTheScreen)
{
    Start("connect 5000\nexpect row 2 \"Missing\" 300\npress ENTER\n", {"--dump-on-exit"});
    CFakeDaemon daemon(m_strSocket);
    ASSERT_TRUE(daemon.Connected());
    daemon.Send(Row(1, "Hello"));
    EXPECT_EQ(1, Finish());
    const std::string err = Err();
    EXPECT_NE(std::string::npos, err.find("line 2: expect row 2 \"Missing\" 300")) << err;
    EXPECT_NE(std::string::npos, err.find("|Hello")) << err;
    EXPECT_NE(std::string::npos, Out().find("|Hello")) << Out();
    EXPECT_EQ("", daemon.Receive(1));  // the keys after the failure were never sent
}

TEST_F(ScriptModeTest, ScriptAndUsageErrorsExitWithTwoBeforeListening)
{
    Start("connect\npress SIDEWAYS\n");
    EXPECT_EQ(2, Finish());
    EXPECT_NE(std::string::npos, Err().find("line 2: unknown key \"SIDEWAYS\"")) << Err();

    for (const char* script : {"expect row 5 \"x\"\n", "expect text unquoted\n", "wait soon\n", "hold UP\n",
                               "expect row 1 \"open\n", "frobnicate\n"}) {
        Start(script);
        EXPECT_EQ(2, Finish()) << script;
    }
    Start("", {"--bogus"});
    EXPECT_EQ(2, Finish());
    EXPECT_NE(0, access(m_strSocket.c_str(), F_OK));
}

TEST_F(ScriptModeTest, DaemonThatReconnectsIsServedAgain)
{
    Start("connect 5000\nexpect row 1 \"first\"\nexpect row 1 \"second\" 5000\npress DOWN\nerrors 1\n");
    {
        CFakeDaemon first(m_strSocket);
        ASSERT_TRUE(first.Connected());
        first.Send(Row(1, "first") + "\tTcut sh");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    CFakeDaemon second(m_strSocket);
    ASSERT_TRUE(second.Connected());
    second.Send(Row(1, "second"));
    EXPECT_EQ(Key(4, 1) + Key(4, 2), second.Receive(10));
    EXPECT_EQ(0, Finish()) << Err();
}

}  // namespace
