// The input branch as start-up builds it, on the panel and a real unitd: what each kind of
// edit writes, the IGMP source filter rows, status pages following the receiver without a
// key press, clipped counters, and cards found in the slots the unit reports.
#include <gtest/gtest.h>

#include <thread>

#include "TreeOnUnitd.h"

namespace {

class InputsOnUnitdTest : public MenusTest::CTreeOnUnitd {
protected:
    InputsOnUnitdTest() : CTreeOnUnitd(nullptr) {}
};

}  // namespace

TEST_F(InputsOnUnitdTest, EachKindOfEditIsWrittenOnceWithTheControllersText)
{
    Start("full.json");
    Show("Input Select Config");
    int since = m_pUnitd->NextWrite();
    // Inputs are offered by label and written by id, in the order the unit lists them.
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("inputPrimarySrc", since), Writes({".1.1=301"}));
    EXPECT_TRUE(PanelShows("Primary: DVB-S2 Slot 3"));
    Press({KEY_DOWN}, 2);
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("inputFailoverTrigger", since), Writes({".1.1=Decode Failure"}));
    Press({KEY_DOWN}, 2);
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});  // the first digit of "005"
    EXPECT_EQ(Written("inputSwitchOverInterval", since), Writes({".1.1=105"}));
    EXPECT_TRUE(PanelShows("Switchover: 105 Sec"));

    // A usual local oscillator is written as the port's offset; "User" writes nothing.
    Show("DVB-S2 1");
    since = m_pUnitd->NextWrite();
    Press({KEY_DOWN}, 3);
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("dvbs2inConnLoOffset", since), Writes({".2.1=10750"}));
    Press({KEY_ENTER, KEY_UP, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("dvbs2inConnLoOffset", since), Writes({".2.1=10750"}));
    EXPECT_TRUE(PanelShows(">LO Offset Mode: 10750"));
    // The ISI is offered once multistream is on, among the ISIs this card found.
    Press({KEY_DOWN}, 7);
    Press({KEY_ENTER, KEY_UP, KEY_ENTER, KEY_DOWN});
    EXPECT_EQ(Written("dvbs2advfeatureMultiStreamState", since), Writes({".2.1=Enabled"}));
    EXPECT_TRUE(PanelShows(">ISI: 0"));
    Press({KEY_ENTER, KEY_UP, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("dvbs2advfeatureISI", since), Writes({".2.1=4"}));

    // An address, and the SSRC in eight hexadecimal digits.
    Show("MPEG/IP 1-2");
    since = m_pUnitd->NextWrite();
    Press({KEY_DOWN}, 3);
    Press({KEY_ENTER});
    Press({KEY_RIGHT}, 11);
    Press({KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("mpegiprcvDestinationIp", since), Writes({".4.2=239.10.20.3"}));
    Press({KEY_DOWN}, 6);
    EXPECT_TRUE(PanelShows(">SSRC: 1A2B3C4D"));
    Press({KEY_ENTER});
    Press({KEY_RIGHT}, 7);
    Press({KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("mpegiprcvSsrcFilterValue", since), Writes({".4.2=1A2B3C4E"}));
}

TEST_F(InputsOnUnitdTest, IgmpSourcesAreRefusedAddedChangedAndCleared)
{
    Start("full.json");
    Show("IGMP 1-2 Config");
    ASSERT_TRUE(PanelShows("<<No Addresses>>"));
    int since = m_pUnitd->NextWrite();

    // 0.0.0.1 is no source: said so, nothing written.
    Press({KEY_DOWN, KEY_ENTER});
    Press({KEY_RIGHT}, 11);
    std::thread refuse([this]() { Press({KEY_UP, KEY_ENTER}); });
    EXPECT_TRUE(PanelShows("invalid IGMP address."));
    EXPECT_TRUE(PanelShows("You are trying to enter an"));
    refuse.join();
    EXPECT_TRUE(Written("mpegipigmpRowStatus", since).empty());

    // 100.0.0.0 is made; changed to 100.0.0.1 it is made again under its new address.
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("mpegipigmpRowStatus", since), Writes({".4.2.1.4.100.0.0.0=4"}));
    ASSERT_TRUE(PanelShows("IP: 100.0.0.0"));
    Press({KEY_UP, KEY_ENTER});
    Press({KEY_RIGHT}, 11);
    Press({KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("mpegipigmpRowStatus", since),
              Writes({".4.2.1.4.100.0.0.0=4", ".4.2.1.4.100.0.0.1=4", ".4.2.1.4.100.0.0.0=6"}));
    EXPECT_TRUE(PanelShows("IP: 100.0.0.1"));
    EXPECT_TRUE(PanelShows("IP: 100.0.0.0", false));

    // The report is asked for; "Clear All" destroys every row of this stream, no other.
    Show("IGMP 1-1 Config");
    Show("IGMP 1-2 Config");
    ASSERT_TRUE(PanelShows(">Filter Mode: Exclude"));
    since = m_pUnitd->NextWrite();
    Press({KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("mpegiprcvSendIgmpReport", since), Writes({".4.2=true"}));
    Press({KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("mpegipigmpRowStatus", since), Writes({".4.2.1.4.100.0.0.1=6"}));
    EXPECT_TRUE(PanelShows("<<No Addresses>>"));
}

TEST_F(InputsOnUnitdTest, StatusPagesFollowTheReceiverAndClipWideCounters)
{
    Start("full.json");
    // Without lock the signal measures are dashes, as soon as the receiver says so.
    Show("DVB-S2 1 Status");
    Press({KEY_UP});  // the last rows
    ASSERT_TRUE(PanelShows("C/N: 9.8 dB"));
    EXPECT_TRUE(PanelShows("PER: 1.2E-08"));
    Force("dvbs2instatusConnRcvLock", ".2.1", "Unlocked");
    EXPECT_TRUE(PanelShows("Signal Quality Metric: --"));
    EXPECT_TRUE(PanelShows("Error Rate: --"));
    Force("dvbs2instatusConnRcvLock", ".2.1", "Locked");
    EXPECT_TRUE(PanelShows("C/N: 9.8 dB"));

    // Twelve digits pass, thirteen are clipped.
    Show("MPEG/IP 2-1 Status");
    Press({KEY_UP, KEY_UP});
    EXPECT_TRUE(PanelShows(" Corr Packets: >999999999999"));
    Force("mpegiprcvFecCorrectedCount", ".5.1", 999999999999LL);
    EXPECT_TRUE(PanelShows(" Corr Packets: 999999999999"));

    // Eight digits pass on the 8VSB/QAM pages; "Reset Counters" brings them to 0.
    Show("8VSB/QAM 2 Status");
    Press({KEY_UP});
    EXPECT_TRUE(PanelShows("Corr FEC Errors: >99999999"));
    Show("8VSB/QAM 2");
    int since = m_pUnitd->NextWrite();
    Press({KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("vsbinFecErrorsReset", since), Writes({".7.1=true"}));
    Show("8VSB/QAM 2 Status");
    Press({KEY_UP});
    EXPECT_TRUE(PanelShows("Corr FEC Errors: 0"));
}

TEST_F(InputsOnUnitdTest, TheSwitchOverEntryAndThePortChoiceFollowTheUnit)
{
    Start("full.json");
    Show("Input Settings");
    Press({KEY_UP});
    ASSERT_TRUE(PanelShows(">Switch to Backup Input"));
    Force("inputInputActive", ".1.1", "Backup");
    EXPECT_TRUE(PanelShows(">Switch to Primary Input"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_ENTER});
    EXPECT_EQ(Written("inputManualSwitchover", since), Writes({".1.1=true"}));

    // The settings page shows the tuning of the port in use.
    Show("DVB-S2 1 Select Port");
    since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_ENTER});
    EXPECT_EQ(Written("dvbs2instatusActivePort", since), Writes({".2.1=2"}));
    EXPECT_TRUE(PanelShows("Port 2 (Selected)"));
    EXPECT_TRUE(PanelShows("Port 1 (Selected)", false));
    Show("DVB-S2 1");
    EXPECT_TRUE(PanelShows("LO Offset Mode: 9750"));
}

TEST_F(InputsOnUnitdTest, AOneCardUnitHasItsScreensInTheSlotItReports)
{
    Start("minimal.json");
    Show("Input Settings");
    EXPECT_TRUE(PanelShows("MPEG/IP 2", false, 0));
    Show("MPEG/IP 1-1");
    ASSERT_EQ(Current(), "MPEG/IP 1-1");
    int since = m_pUnitd->NextWrite();
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("tsinputsrcState", since), Writes({".2.1=Disabled"}));
    Show("IGMP 1-1 Config");
    EXPECT_TRUE(PanelShows("IP: 10.50.1.10"));
    Show("DVB-S2 1");
    EXPECT_EQ(Current(), "IGMP 1-1 Config");  // no such card
}
