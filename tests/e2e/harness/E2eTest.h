// Base fixture of the end-to-end tests. Each test process runs inside scripts/fpns.sh (a
// private mount namespace with its own /var/run and /var/config); the fixture empties both
// folders before every test, gives the test a temporary folder, starts the pieces it asks
// for and stops all of them afterwards, also when the test fails.
//
//     TEST_F(CE2eTest, Something) {
//         CUnitServer& unit = StartUnit("full.json");     // unitd + a recording tap
//         CPanelEnd& panel = StartPanel();                // the panel socket
//         CChildProcess& fp = StartDaemon();              // --controller unix:<tap>
//         ASSERT_TRUE(WaitRunning(fp));                   // "Initialize: Exit\n"
//         unit.Set("systemState", ".0", 3);              // forced write
//         EXPECT_NE(panel.WaitForReceived("\x09\x30\x7e", kWaitMs), std::string::npos);
//     }
#pragma once

#include <gtest/gtest.h>
#include <linux/magic.h>
#include <signal.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "Controller.h"
#include "PanelEnd.h"
#include "Paths.h"

namespace e2e {

// Empties a folder, but only a tmpfs one: the host's own folders are never touched.
inline bool EmptyPrivateFolder(const std::string& path, std::string* error)
{
    struct statfs fs = {};
    if (statfs(path.c_str(), &fs) != 0 || fs.f_type != TMPFS_MAGIC) {
        *error = path + " is not a private tmpfs";
        return false;
    }

    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(path, ec))
        std::filesystem::remove_all(entry.path(), ec);
    return true;
}

// Sanitizer and runtime-check reports in a program's stderr.
inline bool HasSanitizerReport(const std::string& err)
{
    return err.find("Sanitizer") != std::string::npos || err.find("runtime error:") != std::string::npos;
}

class CE2eTest : public ::testing::Test {
protected:
    // Generous bounds for anything that should happen "at once", for a loaded 2-core
    // machine and sanitizer builds.
    static const int kWaitMs = 30000;

    void SetUp() override
    {
        const char* inside = std::getenv("FPNS");
        if (inside == nullptr || std::string(inside) != "1")
            GTEST_FAIL() << "run the end-to-end tests inside scripts/fpns.sh (ctest does this)";
        std::string error;
        ASSERT_TRUE(EmptyPrivateFolder("/var/run", &error)) << error;
        ASSERT_TRUE(EmptyPrivateFolder("/var/config", &error)) << error;

        char pattern[] = "/tmp/fp-e2e.XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        m_strTempDir = pattern;
    }

    void TearDown() override
    {
        // The daemons first (they hold the other ends; one still running is killed), then the
        // panel, the tap and unitd.
        for (auto& daemon : m_daemons)
            EXPECT_FALSE(HasSanitizerReport(daemon->Stderr())) << daemon->Describe();
        m_daemons.clear();
        m_pPanel.reset();
        m_pTap.reset();
        if (m_pUnit) {
            EXPECT_FALSE(HasSanitizerReport(m_pUnit->Process().Stderr())) << m_pUnit->Process().Describe();
        }
        m_pUnit.reset();
        std::error_code ec;
        std::filesystem::remove_all(m_strTempDir, ec);
    }

    // A folder of this test, removed afterwards.
    const std::string& TempDir() const { return m_strTempDir; }

    // Starts unitd with a unit file (a name in unit/units, or a path) and the tap that the
    // daemon connects through. One per test.
    CUnitServer& StartUnit(const std::string& unitFile = "full.json")
    {
        m_pUnit.reset(new CUnitServer(unitFile, m_strTempDir + "/unitd.sock"));
        std::string error;
        EXPECT_TRUE(m_pUnit->Start(&error)) << error;
        m_pTap.reset(new CControllerTap(m_strTempDir + "/tap.sock", m_pUnit->SocketPath()));
        EXPECT_TRUE(m_pTap->Start(&error)) << error;
        return *m_pUnit;
    }

    CControllerTap& Tap() { return *m_pTap; }
    // Listens on the panel socket.
    CPanelEnd& StartPanel()
    {
        m_pPanel.reset(new CPanelEnd());
        std::string error;
        EXPECT_TRUE(m_pPanel->Start(&error)) << error;
        return *m_pPanel;
    }

    // Starts the daemon in the foreground. Unless args name a controller, it is the unit
    // started before (through the tap), or the built-in one when there is none.
    CChildProcess& StartDaemon(std::vector<std::string> args = {})
    {
        bool namesController = false;
        for (const std::string& a : args)
            namesController = namesController || a.rfind("--controller", 0) == 0;
        std::vector<std::string> argv = {kFrontpanelPath};
        if (!namesController && m_pTap) {
            argv.push_back("--controller");
            argv.push_back("unix:" + m_pTap->Path());
        }
        argv.insert(argv.end(), args.begin(), args.end());
        m_daemons.emplace_back(new CChildProcess(argv));
        std::string error;
        EXPECT_TRUE(m_daemons.back()->Start(&error)) << error;
        return *m_daemons.back();
    }

    // Waits until the daemon has built everything and blocks ("Initialize: Exit\n").
    bool WaitRunning(CChildProcess& daemon)
    {
        return daemon.WaitForStdout("Initialize: Exit\n", kWaitMs) != std::string::npos;
    }

    // SIGUSR1, then waits for the exit.
    bool StopDaemon(CChildProcess& daemon)
    {
        daemon.Signal(SIGUSR1);
        return daemon.WaitExit(kWaitMs);
    }

    static std::string ReadFile(const std::string& path)
    {
        std::ifstream in(path);
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }

private:
    std::string m_strTempDir;
    std::unique_ptr<CUnitServer> m_pUnit;
    std::unique_ptr<CControllerTap> m_pTap;
    std::unique_ptr<CPanelEnd> m_pPanel;
    std::vector<std::unique_ptr<CChildProcess>> m_daemons;
};

}  // namespace e2e
