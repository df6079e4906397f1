// Event-driven pages on the panel and a real unitd: the panel lock modes, subscriptions only
// while on view, forced hardware values reaching a status page, and what an edit writes.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <thread>

#include "Client/TavClient.h"
#include "Controller.h"
#include "Lines/GenericLine.h"
#include "Menus/MenuUnitTemperature.h"
#include "Menus/MenuVoltageLevelStatus.h"
#include "PanelTest.h"
#include "Paths.h"
#include "ScreenManager/TableScreen.h"
#include "TestScreens.h"
#include "Zor/Zor.h"

namespace {

const CRow kSettings[] = {
    Entry("Alias: ", "unitAlias", ".0", CharSet::Printable, 20),
    List("Syslog: ", "syslogTransmissionState", ".0", {"Enabled", "Disabled"}),
};

// The settings page, counting the change events that reach it.
class CCountingSettings : public CConfigTableScreen {
public:
    CCountingSettings() : CConfigTableScreen("Unit Settings", "Elsewhere", kSettings) {}
    void OnManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value) override
    {
        ++m_iEvents;
        CConfigTableScreen::OnManagedEvent(name, instance, value);
    }
    std::atomic<int> m_iEvents{0};
};

class EventScreensEndToEndTest : public PanelTest::CPanelTest {
protected:
    void SetUp() override
    {
        if (std::string(e2e::kUnitdPath).empty())
            GTEST_SKIP() << "unitd is not built";
        std::string error;
        m_pUnitd.reset(new e2e::CUnitServer("full.json"));
        ASSERT_TRUE(m_pUnitd->Start(&error)) << error;
        m_pZor.reset(new Zor::CZorClient("zor.fp", m_pUnitd->Target()));
        m_pClient.reset(new CTavClient(m_pZor.get()));
        m_pManager.reset(new CTavScreenManager(nullptr, &Rig().Display(), m_pClient.get()));
        m_pManager->AddScreen(new PanelTest::CTableScreen("Elsewhere", "No Screen", {}), "Elsewhere");
        m_pSettings = new CCountingSettings();
        m_pManager->AddScreen(m_pSettings, "Unit Settings");
    }
    void TearDown() override
    {
        m_pManager.reset();  // screens first: they may still be subscribed
        m_pClient.reset();
        m_pZor.reset();
    }

    void Show(const std::string& name) { m_pManager->ShowScreenLocked(name); }
    void Press(int key)
    {
        KeyPress_t press = {key, KEY_STATE_DOWN};
        m_pManager->RouteKey(press);
    }
    // Waits until the panel shows the text; the panel as last seen otherwise.
    ::testing::AssertionResult PanelShows(const std::string& text, int ms = 10000)
    {
        auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
        std::string panel;
        for (;;) {
            panel = Panel();
            if (panel.find(text) != std::string::npos)
                return ::testing::AssertionSuccess();
            if (std::chrono::steady_clock::now() > end)
                return ::testing::AssertionFailure() << "no \"" << text << "\" on\n" << panel;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }
    std::string TitleRow()
    {
        std::string panel = Panel();
        return panel.substr(0, panel.find('\n'));
    }
    void SetLockMode(int mode)
    {
        ASSERT_TRUE(m_pUnitd->Set("frontpanelLockMode", ".0", mode, false).value("ok", false));
    }

    std::unique_ptr<e2e::CUnitServer> m_pUnitd;
    std::unique_ptr<Zor::CZorClient> m_pZor;
    std::unique_ptr<CTavClient> m_pClient;
    std::unique_ptr<CTavScreenManager> m_pManager;
    CCountingSettings* m_pSettings = nullptr;
};

}  // namespace

TEST_F(EventScreensEndToEndTest, LockModesOnASettingsPage)
{
    // Locked: the lock indicator, and ENTER does not start an edit.
    SetLockMode(2);
    Show("Unit Settings");
    Press(KEY_ENTER);
    EXPECT_PANEL("settings_locked_enter_ignored");

    // Disabled: only the indicator changes; the lines stay as the lock left them.
    Show("Elsewhere");
    SetLockMode(3);
    Show("Unit Settings");
    Press(KEY_ENTER);
    EXPECT_EQ(TitleRow().find('#'), std::string::npos) << Panel();
    EXPECT_NE(TitleRow().find('!'), std::string::npos) << Panel();
    EXPECT_EQ(Panel().find('^'), std::string::npos) << Panel();

    // Unlocked, then disabled again: the lines stay editable under the disabled indicator.
    Show("Elsewhere");
    SetLockMode(1);
    Show("Unit Settings");
    Show("Elsewhere");
    SetLockMode(3);
    Show("Unit Settings");
    Press(KEY_ENTER);
    EXPECT_PANEL("settings_disabled_editing");
    Press(KEY_EXIT);
    EXPECT_TRUE(m_pUnitd->WritesOf("unitAlias").empty());
}

TEST_F(EventScreensEndToEndTest, SettingsPageSubscribesOnlyWhileOnView)
{
    Show("Unit Settings");
    ASSERT_TRUE(PanelShows("Alias: Uplink IRD 3"));
    ASSERT_TRUE(m_pUnitd->Set("unitAlias", ".0", "Seen", false).value("ok", false));
    EXPECT_TRUE(PanelShows("Alias: Seen"));
    EXPECT_EQ(m_pSettings->m_iEvents.load(), 1);

    Show("Elsewhere");
    ASSERT_TRUE(m_pUnitd->Set("unitAlias", ".0", "Unseen", false).value("ok", false));
    ASSERT_TRUE(m_pUnitd->Set("syslogTransmissionState", ".0", "Disabled", false).value("ok", false));
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(m_pSettings->m_iEvents.load(), 1);

    // Entry reads afresh and subscribes again.
    Show("Unit Settings");
    EXPECT_EQ(m_pSettings->CachedValue("unitAlias", ".0").ToString(""), "Unseen");
    EXPECT_TRUE(PanelShows("Syslog: Disabled"));
    ASSERT_TRUE(m_pUnitd->Set("syslogTransmissionState", ".0", "Enabled", false).value("ok", false));
    EXPECT_TRUE(PanelShows("Syslog: Enabled"));
    EXPECT_EQ(m_pSettings->m_iEvents.load(), 2);
}

TEST_F(EventScreensEndToEndTest, ForcedValuesReachStatusPagesOnView)
{
    m_pManager->AddScreen(new CMenuVoltageLevelStatus(), "Voltage Levels");
    m_pManager->AddScreen(new CMenuUnitTemperature(), "Unit Temperature");

    Show("Voltage Levels");
    ASSERT_TRUE(PanelShows("12V: 12.06"));
    ASSERT_TRUE(m_pUnitd->Set("sensor12V", ".0", 11.5).value("ok", false));
    EXPECT_TRUE(PanelShows("12V: 11.50"));
    EXPECT_TRUE(PanelShows("5V: 5.02"));

    // Each sensor's event lands on its own row.
    Show("Unit Temperature");
    ASSERT_TRUE(PanelShows("Sensor 3: 52.00"));
    ASSERT_TRUE(m_pUnitd->Set("tempReading", ".3", 61.5).value("ok", false));
    EXPECT_TRUE(PanelShows("Sensor 3: 61.50"));
    EXPECT_TRUE(PanelShows("Sensor 2: 47.25"));

    // A page off view draws nothing; it shows the value when it comes back.
    ASSERT_TRUE(m_pUnitd->Set("sensor5V", ".0", 4.75).value("ok", false));
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_EQ(Panel().find("5V:"), std::string::npos) << Panel();
    Show("Voltage Levels");
    EXPECT_TRUE(PanelShows("5V: 4.75"));
}

TEST_F(EventScreensEndToEndTest, EnterWritesAnEditedTextOnceAndExitWritesNothing)
{
    Show("Unit Settings");
    int since = m_pUnitd->NextWrite();
    Press(KEY_ENTER);
    Press(KEY_UP);  // "U" -> "V"
    Press(KEY_ENTER);
    nlohmann::json writes = m_pUnitd->WritesOf("unitAlias", since);
    ASSERT_EQ(writes.size(), 1u) << writes.dump();
    EXPECT_EQ(writes[0].value("client", ""), "zor.fp");
    EXPECT_EQ(writes[0].value("value", ""), "Vplink IRD 3");
    EXPECT_TRUE(PanelShows("Alias: Vplink IRD 3"));

    since = m_pUnitd->NextWrite();
    Press(KEY_ENTER);
    Press(KEY_UP);
    Press(KEY_EXIT);
    EXPECT_TRUE(m_pUnitd->WritesOf("unitAlias", since).empty());
    CGenericLine* pAlias = m_pSettings->Table().Find("unitAlias", ".0");
    ASSERT_NE(pAlias, nullptr);
    EXPECT_FALSE(pAlias->IsEditing());
    EXPECT_EQ(pAlias->GetValue(), "Vplink IRD 3");
}
