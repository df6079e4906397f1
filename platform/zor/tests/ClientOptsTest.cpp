#include <gtest/gtest.h>

#include <vector>

#include "Zor/Zor.h"

namespace {

// argv for the options, kept alive for the test.
struct Args {
    explicit Args(std::vector<std::string> words) : m_words(std::move(words))
    {
        for (auto& w : m_words) {
            m_argv.push_back(&w[0]);
        }
        m_argv.push_back(nullptr);
    }
    int Argc() const { return static_cast<int>(m_words.size()); }
    char** Argv() { return m_argv.data(); }
    std::vector<std::string> m_words;
    std::vector<char*> m_argv;
};

}  // namespace

TEST(ClientOpts, ParsesTheCommandLineAndBecomesTheProcesssOptions)
{
    EXPECT_EQ(Zor::CClientOpts::Current(), nullptr);
    {
        Args a({"/usr/bin/frontpanel", "-d", "--pidfile", "/tmp/x.pid",
                "--controller=embedded:" UNIT_TEST_FILES "/small.json"});
        Zor::CClientOpts opts(a.Argc(), a.Argv(), "", "");
        EXPECT_TRUE(opts.IsDaemon());
        EXPECT_EQ(opts.GetPidFile(), "/tmp/x.pid");
        EXPECT_EQ(Zor::CClientOpts::Current(), &opts);
        // A client built by name alone connects where the options say.
        Zor::CZorClient client("zor.fp");
        EXPECT_EQ(client.GetValue("zor.fp", "unitAlias.0").Val().ToString(""), "IRD-01");
    }
    EXPECT_EQ(Zor::CClientOpts::Current(), nullptr);
    Args plain({"frontpanel"});
    Zor::CClientOpts opts(plain.Argc(), plain.Argv(), "", "");
    EXPECT_FALSE(opts.IsDaemon());
    EXPECT_EQ(opts.GetController(), "embedded");
    EXPECT_EQ(opts.GetPidFile(), "/var/run/frontpanel.pid");
}

TEST(ClientOpts, BadOptionsPrintTheUsageAndExitTwo)
{
    for (std::vector<std::string> words : {std::vector<std::string>{"fp", "--bogus"},
                                           {"fp", "--controller"},
                                           {"fp", "--controller", "tcp:1.2.3.4"},
                                           {"fp", "--controller", "unix:"},
                                           {"fp", "extra"},
                                           {"fp", "--daemon=yes"}}) {
        Args a(words);
        EXPECT_EXIT(Zor::CClientOpts(a.Argc(), a.Argv(), "", ""), testing::ExitedWithCode(2), "Usage: fp")
            << words.back();
    }
    Args help({"fp", "--help"});
    EXPECT_EXIT(Zor::CClientOpts(help.Argc(), help.Argv(), "The panel", ""), testing::ExitedWithCode(0), "");
    Args version({"fp", "-V"});
    EXPECT_EXIT({ Zor::CClientOpts(version.Argc(), version.Argv(), "", "2.1"); }, testing::ExitedWithCode(0),
                "");
}
