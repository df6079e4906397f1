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

#include <memory>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "Controller.h"
#include "PanelEnd.h"
#include "Paths.h"

namespace e2e {

class CE2eTest : public ::testing::Test {
protected:
    // Generous bounds for anything that should happen "at once", for a loaded 2-core
    // machine and sanitizer builds.
    static const int kWaitMs = 30000;

    void SetUp() override;
    void TearDown() override;

    // A folder of this test, removed afterwards.
    const std::string& TempDir() const { return m_strTempDir; }

    // Starts unitd with a unit file (a name in unit/units, or a path) and the tap that the
    // daemon connects through. One per test.
    CUnitServer& StartUnit(const std::string& unitFile = "full.json");
    CControllerTap& Tap() { return *m_pTap; }
    // Listens on the panel socket.
    CPanelEnd& StartPanel();
    // Starts the daemon in the foreground. Unless args name a controller, it is the unit
    // started before (through the tap), or the built-in one when there is none.
    CChildProcess& StartDaemon(std::vector<std::string> args = {});
    // Waits until the daemon has built everything and blocks ("Initialize: Exit\n").
    bool WaitRunning(CChildProcess& daemon);
    // SIGUSR1, then waits for the exit.
    bool StopDaemon(CChildProcess& daemon);

    static std::string ReadFile(const std::string& path);

private:
    std::string m_strTempDir;
    std::unique_ptr<CUnitServer> m_pUnit;
    std::unique_ptr<CControllerTap> m_pTap;
    std::unique_ptr<CPanelEnd> m_pPanel;
    std::vector<std::unique_ptr<CChildProcess>> m_daemons;
};

}  // namespace e2e
