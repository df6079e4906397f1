// Script mode on the real program, with the test playing the daemon's end of the socket.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

extern char** environ;

namespace {

void SleepMs(int ms)
{
    struct timespec pause = {ms / 1000, (ms % 1000) * 1000000L};
    nanosleep(&pause, nullptr);
}

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

// The daemon's end: connects to panelsim, sends display commands, reads key reports.
class CFakeDaemon {
public:
    explicit CFakeDaemon(const std::string& path) : m_iFd(-1)
    {
        sockaddr_un address;
        std::memset(&address, 0, sizeof address);
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        for (int attempt = 0; attempt < 250 && m_iFd < 0; ++attempt) {
            const int fd = socket(AF_UNIX, SOCK_STREAM, 0);
            if (connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) {
                m_iFd = fd;
            } else {
                close(fd);
                SleepMs(20);
            }
        }
    }
    ~CFakeDaemon() { Close(); }

    bool Connected() const { return m_iFd >= 0; }
    void Close()
    {
        if (m_iFd >= 0) {
            close(m_iFd);
            m_iFd = -1;
        }
    }
    void Send(const std::string& bytes)
    {
        ASSERT_EQ(static_cast<ssize_t>(bytes.size()), send(m_iFd, bytes.data(), bytes.size(), MSG_NOSIGNAL));
    }

    // Reads until `count` bytes came or the peer closed / went quiet for 10 s.
    std::string Receive(size_t count)
    {
        std::string bytes;
        while (bytes.size() < count) {
            pollfd fd = {m_iFd, POLLIN, 0};
            if (poll(&fd, 1, 10000) <= 0) {
                break;
            }
            char buffer[256];
            const ssize_t got = recv(m_iFd, buffer, std::min(sizeof buffer, count - bytes.size()), 0);
            if (got <= 0) {
                break;
            }
            bytes.append(buffer, static_cast<size_t>(got));
        }
        return bytes;
    }

private:
    int m_iFd;
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
        if (m_pid > 0) {
            kill(m_pid, SIGKILL);
            waitpid(m_pid, nullptr, 0);
        }
        for (const char* name : {"/script", "/out", "/err", "/panel.socket"}) {
            unlink((m_strDir + name).c_str());
        }
        rmdir(m_strDir.c_str());
    }

    void Start(const std::string& script, std::vector<std::string> extra = {})
    {
        std::ofstream(m_strDir + "/script") << script;
        std::vector<std::string> args;
        std::stringstream emulator(PANELSIM_EMULATOR);
        for (std::string word; std::getline(emulator, word, '|');) {
            args.push_back(word);
        }
        args.insert(args.end(), {PANELSIM_BIN, "--socket", m_strSocket, "--script", m_strDir + "/script"});
        args.insert(args.end(), extra.begin(), extra.end());
        std::vector<char*> argv;
        for (std::string& arg : args) {
            argv.push_back(&arg[0]);
        }
        argv.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, (m_strDir + "/out").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        posix_spawn_file_actions_addopen(&actions, 2, (m_strDir + "/err").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ASSERT_EQ(0, posix_spawnp(&m_pid, argv[0], &actions, nullptr, argv.data(), environ));
        posix_spawn_file_actions_destroy(&actions);
    }

    // The exit status, or -1 when panelsim did not end within 20 s.
    int Finish()
    {
        for (int i = 0; i < 2000; ++i) {
            int status = 0;
            if (waitpid(m_pid, &status, WNOHANG) == m_pid) {
                m_pid = -1;
                return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            }
            SleepMs(10);
        }
        return -1;
    }

    std::string Out() { return ReadFile(m_strDir + "/out"); }
    std::string Err() { return ReadFile(m_strDir + "/err"); }

    std::string m_strDir;
    std::string m_strSocket;
    pid_t m_pid = -1;
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
    SleepMs(200);
    CFakeDaemon second(m_strSocket);
    ASSERT_TRUE(second.Connected());
    second.Send(Row(1, "second"));
    EXPECT_EQ(Key(4, 1) + Key(4, 2), second.Receive(10));
    EXPECT_EQ(0, Finish()) << Err();
}

}  // namespace
