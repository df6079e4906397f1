// A settings page on the panel, over the embedded unit and over a real unitd: the panel lock
// modes, and subscriptions only while on view.
#include <gtest/gtest.h>

#include <atomic>

#include "Lines/GenericLine.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/TableScreen.h"
#include "TestScreens.h"
#include "TreeOnUnitd.h"

namespace {

const CRow kSettings[] = {
    Entry("Alias: ", "unitAlias", ".0", CharSet::Printable, 20),
    List("Syslog: ", "syslogTransmissionState", ".0", {"Enabled", "Disabled"}),
    Entry("NTP: ", "datetimeNtpServer", ".0", CharSet::HostName, 15).ReadOnly(),
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

// The same page over both links to the controller.
class EventScreensOnBothLinks : public MenusTest::CTreeOnUnitd, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override
    {
        CTreeOnUnitd::SetUp();
        if (IsSkipped())
            return;
        if (GetParam()) {
            ASSERT_NO_FATAL_FAILURE(Start("full.json", nullptr, false));
        } else {
            Client("full.json");
        }
        Add(new PanelTest::CTableScreen("Elsewhere", "No Screen", {}), "Elsewhere");
        m_pSettings = new CCountingSettings();
        Add(m_pSettings, "Unit Settings");
    }
    // A write as another manager would make it, on either link.
    void Change(const std::string& name, const std::string& value)
    {
        if (m_pUnitd) {
            Set(name, ".0", value);
        } else {
            ASSERT_TRUE(Client()->SendData(name, ".0", value));
        }
    }
    std::string TitleRow() { return PanelTest::Row(Panel(), 0); }
    CGenericLine* Line(const char* name) { return m_pSettings->Table().Find(name, ".0"); }

    CCountingSettings* m_pSettings = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Links, EventScreensOnBothLinks, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool>& info) {
                             return info.param ? "Unitd" : "Embedded";
                         });

}  // namespace

TEST_P(EventScreensOnBothLinks, LockModesOnASettingsPage)
{
    Show("Unit Settings");
    CGenericLine* pAlias = Line("unitAlias");
    CGenericLine* pSyslog = Line("syslogTransmissionState");
    CGenericLine* pNtp = Line("datetimeNtpServer");
    ASSERT_TRUE(pAlias && pSyslog && pNtp);
    m_pSettings->GetMenu()->SetLineHidden(pSyslog, true);

    // Locked: the lock indicator, every line refuses edits (hidden ones too), ENTER starts none.
    Show("Elsewhere");
    Change("frontpanelLockMode", "2");
    Show("Unit Settings");
    Press(KEY_ENTER);
    EXPECT_PANEL("settings_locked_enter_ignored");
    EXPECT_TRUE(pAlias->IsReadOnly() && pSyslog->IsReadOnly());
    EXPECT_FALSE(pAlias->IsEnabled());
    EXPECT_TRUE(m_pSettings->IsReadOnly());
    // The same mode again changes no line.
    pAlias->SetReadOnly(false);
    m_pSettings->UpdateLockMode();
    EXPECT_FALSE(pAlias->IsReadOnly());
    pAlias->SetReadOnly(true);

    // Disabled: only the indicator changes; the lines stay as the lock left them.
    Show("Elsewhere");
    Change("frontpanelLockMode", "3");
    Show("Unit Settings");
    Press(KEY_ENTER);
    EXPECT_EQ(TitleRow().find('#'), std::string::npos) << Panel();
    EXPECT_NE(TitleRow().find('!'), std::string::npos) << Panel();
    EXPECT_EQ(Panel().find('^'), std::string::npos) << Panel();

    // Unlocked: editable again, but a row declared read-only stays so.
    Show("Elsewhere");
    Change("frontpanelLockMode", "1");
    Show("Unit Settings");
    EXPECT_TRUE(pAlias->IsEnabled() && !pAlias->IsReadOnly());
    EXPECT_TRUE(pNtp->IsReadOnly());
    EXPECT_FALSE(m_pSettings->GetMenu()->GetLockIndicator() ||
                 m_pSettings->GetMenu()->GetDisabledIndicator());
    EXPECT_EQ(m_pSettings->GetLockMode(), 1);

    // Disabled again: the lines stay editable under the disabled indicator.
    Show("Elsewhere");
    Change("frontpanelLockMode", "3");
    Show("Unit Settings");
    Press(KEY_ENTER);
    EXPECT_PANEL("settings_disabled_editing");
    Press(KEY_EXIT);
    if (m_pUnitd) {
        EXPECT_TRUE(m_pUnitd->WritesOf("unitAlias").empty());
    }
}

TEST_P(EventScreensOnBothLinks, SettingsPageSubscribesOnlyWhileOnView)
{
    Show("Unit Settings");
    ASSERT_TRUE(PanelShows("Alias: Uplink IRD 3"));
    Change("unitAlias", "Seen");
    EXPECT_TRUE(PanelShows("Alias: Seen"));
    EXPECT_EQ(m_pSettings->m_iEvents.load(), 1);

    Show("Elsewhere");
    Change("unitAlias", "Unseen");
    Change("syslogTransmissionState", "Disabled");
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(m_pSettings->m_iEvents.load(), 1);

    // Entry reads afresh and subscribes again.
    Show("Unit Settings");
    EXPECT_EQ(m_pSettings->CachedValue("unitAlias", ".0").ToString(""), "Unseen");
    EXPECT_TRUE(PanelShows("Syslog: Disabled"));
    Change("syslogTransmissionState", "Enabled");
    EXPECT_TRUE(PanelShows("Syslog: Enabled"));
    EXPECT_EQ(m_pSettings->m_iEvents.load(), 2);
}
