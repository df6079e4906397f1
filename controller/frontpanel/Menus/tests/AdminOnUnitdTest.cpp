// The administration branch as start-up builds it, on the panel and a real unitd: what
// each kind of edit writes, rows created and removed by address, staged network settings
// discarded or applied, and the factory reset's question.
#include <gtest/gtest.h>

#include "TreeOnUnitd.h"

namespace {

class AdminOnUnitdTest : public MenusTest::CTreeOnUnitd {};

}  // namespace

TEST_F(AdminOnUnitdTest, EachKindOfEditIsWrittenOnceAndRowsFollowIt)
{
    int since = m_pUnitd->NextWrite();
    Show("Admin");
    Press({KEY_UP, KEY_ENTER, KEY_UP, KEY_ENTER});  // the last line: "Enable UID: "
    EXPECT_EQ(Written("unitUidLed", since), Writes({".0=Enabled"}));
    EXPECT_TRUE(PanelShows("Enable UID: Enabled"));

    // The lock entry is named after the mode.
    Set("frontpanelLockMode", ".0", 2);
    Show("Home");
    Show("Admin");
    Press({KEY_UP, KEY_UP, KEY_UP, KEY_UP, KEY_UP, KEY_UP});
    EXPECT_TRUE(PanelShows("Unlock Front Panel"));
    Set("frontpanelLockMode", ".0", 1);

    // A value the unit refuses is not kept, and the panel says why for a moment.
    Set("tcpipApplyNew", ".0", true);  // busy
    Show("Configure Network");
    Press({KEY_DOWN, KEY_ENTER, KEY_UP});
    std::thread enter([this] { Press({KEY_ENTER}); });
    EXPECT_TRUE(PanelShows("the network settings are being"));
    enter.join();
    EXPECT_TRUE(PanelShows("DHCP: Disabled"));

    // Setting the clock by hand offers the date and time rows, after the user's own edit.
    Show("Configure Date/Time");
    EXPECT_TRUE(PanelShows("Set Date:", false));
    since = m_pUnitd->NextWrite();
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("datetimeUpdateMode", since), Writes({".0=Manual"}));
    EXPECT_TRUE(PanelShows("Set Date:"));
}

TEST_F(AdminOnUnitdTest, SyslogReceiversAreAddedByAddressAndRemoved)
{
    Show("Syslog Configuration");
    ASSERT_TRUE(PanelShows("IP: 10.20.0.15"));
    int since = m_pUnitd->NextWrite();
    // "Add Receiver: " is the last row; the last digit of 000.000.000.000 becomes 1.
    Press({KEY_UP, KEY_ENTER});
    for (int i = 0; i < 11; ++i)
        Press({KEY_RIGHT});
    Press({KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("syslogreceiverRowStatus", since), Writes({".1.4.0.0.0.1=4"}));
    EXPECT_TRUE(PanelShows("Add Receiver: 0.0.0.0"));

    // The new receiver's rows come first (in address order); the selection stays on the
    // add row. Its "Remove" takes it away again.
    for (int i = 0; i < 5; ++i)
        Press({KEY_DOWN});  // from the add row, round past "State: " to the new "Remove"
    EXPECT_TRUE(PanelShows("IP: 0.0.0.1"));
    EXPECT_TRUE(PanelShows(">Remove"));
    since = m_pUnitd->NextWrite();
    Press({KEY_ENTER});
    EXPECT_EQ(Written("syslogreceiverRowStatus", since), Writes({".1.4.0.0.0.1=6"}));
    EXPECT_TRUE(PanelShows("IP: 0.0.0.1", false));
}

TEST_F(AdminOnUnitdTest, StagedNetworkEditsAreDiscardedOnExitOrAppliedTogether)
{
    Show("Configure Network");
    ASSERT_TRUE(PanelShows("DHCP: Disabled"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("tcpipNewIpMode", since), Writes({".0=Enabled"}));
    Press({KEY_EXIT});
    EXPECT_EQ(Written("tcpipNewIpMode", since), Writes({".0=Enabled", ".0=Disabled"}));
    EXPECT_EQ(Current(), "Unit Networking");

    Show("Configure Network");
    since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_ENTER, KEY_UP, KEY_ENTER, KEY_UP, KEY_UP, KEY_ENTER});  // DHCP, then "Apply"
    EXPECT_EQ(Written("tcpipApplyNew", since), Writes({".0=true"}));
    EXPECT_TRUE(PanelShows("Gateway: 10.20.4.1 (Busy)"));
    EXPECT_TRUE(PanelShows("(Busy)", false));
    EXPECT_EQ(m_pUnitd->Get("tcpipIpMode.0"), "Enabled");
    Press({KEY_EXIT});  // nothing left to discard
    EXPECT_EQ(Written("tcpipNewIpMode", since), Writes({".0=Enabled"}));
}

TEST_F(AdminOnUnitdTest, ResetAllSettingsAsksAndNoChangesNothing)
{
    Show("Reset All Settings");
    int since = m_pUnitd->NextWrite();
    Press({KEY_ENTER});  // "No" is offered first
    EXPECT_EQ(Current(), "Admin");
    EXPECT_TRUE(Written("utilityResetSettings", since).empty());

    Show("Reset All Settings");
    Press({KEY_LEFT, KEY_ENTER});
    EXPECT_EQ(Written("utilityResetSettings", since), Writes({".0=true"}));
    EXPECT_EQ(Written("utilityRebootUnit", since), Writes({".0=true"}));
}
