// The conditional-access branch as start-up builds it, on the panel and a real unitd: a
// BISS session word typed and written once, the key rows following the BISS mode, a staged
// CAM configuration saved in one go or dropped, and the CAM status following the stream.
#include <gtest/gtest.h>

#include "TreeOnUnitd.h"

namespace {

class ConditionalAccessOnUnitdTest : public MenusTest::CTreeOnUnitd {};

}  // namespace

TEST_F(ConditionalAccessOnUnitdTest, KeyRowsFollowTheModeAndASessionWordIsWrittenOnce)
{
    Show("BISS Config");
    ASSERT_TRUE(PanelShows("Session Word:A1B2C3D4E5F60718"));
    EXPECT_TRUE(PanelShows("Sess Word:", false));
    int since = m_pUnitd->NextWrite();
    Press({KEY_DOWN}, 2);
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});  // the first key to Mode 1
    EXPECT_EQ(Written("bissserviceBissMode", since), Writes({".1.1=Mode 1"}));
    EXPECT_TRUE(PanelShows("Sess Word: 000000000000"));
    EXPECT_TRUE(PanelShows("Session Word:", false));
    EXPECT_TRUE(PanelShows("Injected ID:", false));

    Press({KEY_DOWN, KEY_ENTER, KEY_UP, KEY_RIGHT, KEY_UP, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("bissserviceMode1SessionWord", since), Writes({".1.1=120000000000"}));
    EXPECT_TRUE(PanelShows("Sess Word: 120000000000"));

    // Back to Mode E while on the page: its rows return with the key words kept.
    Press({KEY_UP, KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_TRUE(PanelShows("Session Word:A1B2C3D4E5F60718"));
    EXPECT_TRUE(PanelShows("Sess Word:", false));
    EXPECT_EQ(Written("bissserviceMode1SessionWord", since).size(), 1u);
}

TEST_F(ConditionalAccessOnUnitdTest, StagedServicesAreSavedTogetherOrDroppedWithoutAWrite)
{
    // The top slot's module takes several services: Srv 1, Srv 2 and Srv 7 (not received).
    Show("DVB-CI(Top) Config Srvs");
    ASSERT_TRUE(PanelShows("Srv 7 (Not Present)"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_DOWN, KEY_ENTER});      // Srv 7 out
    Press({KEY_ENTER, KEY_UP, KEY_UP, KEY_UP, KEY_ENTER});  // "Add Service: " the third received one
    EXPECT_TRUE(PanelShows("Srv 3 Weather Channel"));
    EXPECT_TRUE(Written("camselectedserviceRowStatus", since).empty());
    Press({KEY_EXIT});
    EXPECT_PANEL("dvbci_save_question");
    Press({KEY_RIGHT, KEY_ENTER});  // "No"
    EXPECT_EQ(Current(), "DVB-CI(Top)");
    EXPECT_TRUE(Written("camselectedserviceRowStatus", since).empty());
    EXPECT_TRUE(Written("camselectedserviceProgramNumber", since).empty());

    // The same again, saved: the row that goes and the new one, in one go.
    Show("DVB-CI(Top) Config Srvs");
    ASSERT_TRUE(PanelShows("Srv 7 (Not Present)"));
    Press({KEY_DOWN, KEY_DOWN, KEY_ENTER, KEY_ENTER, KEY_UP, KEY_UP, KEY_UP, KEY_ENTER});
    Press({KEY_EXIT, KEY_ENTER});  // "Yes"
    EXPECT_EQ(Current(), "DVB-CI(Top)");
    EXPECT_EQ(Written("camselectedserviceRowStatus", since), Writes({".1.3=6", ".1.4=4"}));
    EXPECT_EQ(Written("camselectedserviceProgramNumber", since), Writes({".1.4=3"}));
    Show("DVB-CI(Top) Status");
    Press({KEY_DOWN}, 4);
    EXPECT_TRUE(PanelShows("Srv 3 Weather Channel"));
    EXPECT_TRUE(PanelShows("Srv 7", false));

    // Leaving without changes asks nothing.
    Show("DVB-CI(Top) Config Srvs");
    Press({KEY_EXIT});
    EXPECT_EQ(Current(), "DVB-CI(Top)");
}

TEST_F(ConditionalAccessOnUnitdTest, SelectedPidsShowTheirServiceAndLeaveTheStreamLive)
{
    Show("DVB-CI(Btm) Status");
    Press({KEY_DOWN}, 7);
    ASSERT_TRUE(PanelShows("No Associated Service:"));
    EXPECT_TRUE(PanelShows("0x05DC (Not Present)"));
    Show("DVB-CI(Btm) Status");
    ASSERT_TRUE(PanelShows("|   0x0300      "));
    // Service 3 leaves the stream while the page is on view.
    Force("siserviceRowStatus", ".1.3", 6);
    EXPECT_TRUE(PanelShows("0x0300 (Not Present)"));
}

TEST_F(ConditionalAccessOnUnitdTest, ServicesAreAddedAsNewRowsAndRemovedByRowStatus)
{
    Show("BISS Add Services");
    ASSERT_TRUE(PanelShows("Srv 1 News 24 HD"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_UP});  // round to "Add Service: "
    Press({KEY_ENTER, KEY_UP, KEY_UP, KEY_ENTER});  // past "None" to the second service
    EXPECT_EQ(Written("bissselectedserviceRowStatus", since), Writes({".1.3=4"}));
    EXPECT_EQ(Written("bissselectedserviceService", since), Writes({".1.3=2"}));
    Show("BISS Selected Services Status");
    Press({KEY_DOWN}, 4);
    EXPECT_TRUE(PanelShows("Srv 2 Sport Live HD"));

    // The bottom slot's module takes one service: chosen and removed at once.
    Show("DVB-CI(Btm) Config Srvs");
    ASSERT_TRUE(PanelShows("Select Service: None"));
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("camselectedserviceRowStatus", since), Writes({".2.1=4"}));
    EXPECT_TRUE(PanelShows("Srv 1 News 24 HD"));
    EXPECT_TRUE(PanelShows("Select Service:", false));
    Press({KEY_DOWN, KEY_ENTER});  // " Remove"
    EXPECT_EQ(Written("camselectedserviceRowStatus", since), Writes({".2.1=4", ".2.1=6"}));
    EXPECT_TRUE(PanelShows("Select Service: "));
}

TEST_F(ConditionalAccessOnUnitdTest, PidsTypedInHexJoinTheirServiceOrNoneAndAreSavedTogether)
{
    Show("DVB-CI(Top) Config PIDs");
    ASSERT_TRUE(PanelShows(">Add PID: 0000"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_ENTER, KEY_RIGHT});
    Press({KEY_UP}, 3);
    Press({KEY_ENTER});  // 0x0300: the video of service 3
    EXPECT_TRUE(PanelShows("Srv 3:"));
    EXPECT_TRUE(PanelShows(" 0x0300 MPEG-2"));
    Show("DVB-CI(Top) Config PIDs Save");  // back with the change kept: EXIT from the question
    Press({KEY_EXIT});
    ASSERT_TRUE(PanelShows(" 0x0300 MPEG-2"));
    Press({KEY_DOWN});  // "Add PID: "
    Press({KEY_ENTER, KEY_RIGHT});
    Press({KEY_UP}, 5);
    Press({KEY_RIGHT});
    Press({KEY_UP}, 13);
    Press({KEY_RIGHT});
    Press({KEY_UP}, 12);
    Press({KEY_ENTER});  // 0x05DC: carried by no service
    EXPECT_TRUE(PanelShows("No Associated Service:"));
    EXPECT_TRUE(Written("camselectedpidRowStatus", since).empty());
    Press({KEY_EXIT, KEY_ENTER});
    EXPECT_EQ(Written("camselectedpidRowStatus", since), Writes({".1.1=4", ".1.2=4"}));
    EXPECT_EQ(Written("camselectedpidProgramNumber", since), Writes({".1.1=3", ".1.2=65535"}));
    EXPECT_EQ(Written("camselectedpidPid", since), Writes({".1.1=768", ".1.2=1500"}));
}
