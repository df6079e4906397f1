#include "E2eTest.h"

#include <linux/magic.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace e2e {

namespace {

// Empties a folder, but only a tmpfs one: the host's own folders are never touched.
bool EmptyPrivateFolder(const std::string& path, std::string* error)
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
bool HasSanitizerReport(const std::string& err)
{
    return err.find("Sanitizer") != std::string::npos || err.find("runtime error:") != std::string::npos;
}

}  // namespace

void CE2eTest::SetUp()
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

void CE2eTest::TearDown()
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

CUnitServer& CE2eTest::StartUnit(const std::string& unitFile)
{
    m_pUnit.reset(new CUnitServer(unitFile, m_strTempDir + "/unitd.sock"));
    std::string error;
    EXPECT_TRUE(m_pUnit->Start(&error)) << error;
    m_pTap.reset(new CControllerTap(m_strTempDir + "/tap.sock", m_pUnit->SocketPath()));
    EXPECT_TRUE(m_pTap->Start(&error)) << error;
    return *m_pUnit;
}

CPanelEnd& CE2eTest::StartPanel()
{
    m_pPanel.reset(new CPanelEnd());
    std::string error;
    EXPECT_TRUE(m_pPanel->Start(&error)) << error;
    return *m_pPanel;
}

CChildProcess& CE2eTest::StartDaemon(std::vector<std::string> args)
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

bool CE2eTest::WaitRunning(CChildProcess& daemon)
{
    return daemon.WaitForStdout("Initialize: Exit\n", kWaitMs) != std::string::npos;
}

bool CE2eTest::StopDaemon(CChildProcess& daemon)
{
    daemon.Signal(SIGUSR1);
    return daemon.WaitExit(kWaitMs);
}

std::string CE2eTest::ReadFile(const std::string& path)
{
    std::ifstream in(path);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

}  // namespace e2e
