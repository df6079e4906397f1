// Decoding and processing as start-up builds them, on the panel and a real unitd: what each
// kind of edit writes (PIDs typed in hexadecimal, kept by the controller as numbers), a long
// list scrolled to its end and back, the status pages following a service change while on
// view, the second output's formats, and a unit without the decoder.
#include <gtest/gtest.h>

#include "TreeOnUnitd.h"
#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

namespace {

class DecodingOnUnitdTest : public MenusTest::CTreeOnUnitd {};

}  // namespace

TEST_F(DecodingOnUnitdTest, EachKindOfEditIsWrittenOnce)
{
    // A PID is typed in hexadecimal and written as the number the controller keeps.
    Show(kPrimaryPidLock);
    ASSERT_TRUE(PanelShows(">PCR PID: 0100"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("pidlockPcrPid", since), Writes({".1.1=4352"}));
    EXPECT_TRUE(PanelShows(">PCR PID: 1100"));

    // A choice; the rows it rules come and go with the user's own edit.
    Show(kSourceIdConfig);
    ASSERT_TRUE(PanelShows("Manual ID:", false));
    since = m_pUnitd->NextWrite();
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("ancoptSourceIdLookupMode", since), Writes({".1.1=Manual"}));
    EXPECT_TRUE(PanelShows("Manual ID: NEWS24"));

    // A text, a number with its unit, a hexadecimal identifier.
    since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("ancoptSourceIdManualSourceId", since), Writes({".1.1=OEWS24"}));
    Show(kScte35GeneralConfig);
    since = m_pUnitd->NextWrite();
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("scte35srvHeartbeatTimeout", since), Writes({".1.1=15"}));
    EXPECT_TRUE(PanelShows("Heartbeat Timeout: 15 min"));
    Show(DecodingTrigger(2));
    since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_DOWN, KEY_DOWN, KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("dpicueEventId", since), Writes({".2.1=5000002A"}));

    // EXIT abandons an edit and writes nothing.
    Show(kTimecode);
    since = m_pUnitd->NextWrite();
    Press({KEY_ENTER, KEY_UP, KEY_EXIT});
    EXPECT_TRUE(Written("timecodeSource", since).empty());
}

TEST_F(DecodingOnUnitdTest, ALongListScrollsToItsLastLineAndBack)
{
    Show(kAncStatus);
    ASSERT_TRUE(PanelShows(">AFD: Code 10"));
    Press({KEY_DOWN}, 13);
    EXPECT_TRUE(PanelShows(">Time Code: Present"));
    EXPECT_TRUE(PanelShows("AFD:", false));
    Press({KEY_UP}, 13);
    EXPECT_TRUE(PanelShows(">AFD: Code 10"));
}

TEST_F(DecodingOnUnitdTest, StatusPagesFollowAServiceChangeWhileOnView)
{
    Show(kServiceSelectStatus);
    ASSERT_TRUE(PanelShows("Name: News 24 HD"));
    Set("servicelockServiceNum", ".1.1", 2);
    EXPECT_TRUE(PanelShows("Service: 2"));
    EXPECT_TRUE(PanelShows("Name: Sport Live HD"));

    Show(kAudioStatus);
    EXPECT_TRUE(PanelShows("Audio 1 Type: Dolby Digital"));
    Press({KEY_DOWN}, 7);
    EXPECT_TRUE(PanelShows("Audio 2 Type: AAC ADTS"));
    Show(kScte35Status);
    EXPECT_TRUE(PanelShows("PID 1: 0208"));

    // The video page: the new service's PID and type while on view; a frame rate the
    // decoder cannot name.
    Show(kVideoStatus);
    ASSERT_TRUE(PanelShows("Video PID: 0200"));
    Set("servicelockServiceNum", ".1.1", 3);
    EXPECT_TRUE(PanelShows("Video PID: 0300"));
    EXPECT_TRUE(PanelShows("Video Type: MPEG-2"));
    Force("videoFrameRate", ".1.1", "48 fps");
    Press({KEY_DOWN}, 4);
    EXPECT_TRUE(PanelShows(">Frame Rate: -- fps"));
}

TEST_F(DecodingOnUnitdTest, TheSecondOutputOffersOnlyTheFormatsItCanPutOut)
{
    Show(DecodingVideoSettings(2));
    ASSERT_TRUE(PanelShows("Format: 525i 29.97"));
    Press({KEY_DOWN, KEY_ENTER});
    std::string seen;
    for (int i = 0; i < 7; ++i) {
        Press({KEY_UP});
        seen += Panel();
    }
    EXPECT_NE(seen.find("1080i 29.97"), std::string::npos) << seen;
    EXPECT_EQ(seen.find("1080p 23.98"), std::string::npos) << seen;
    Press({KEY_EXIT});
}

class DecodingTreeTest : public PanelTest::CPanelTest {};

TEST_F(DecodingTreeTest, NoDecodingOrProcessingScreenExists)
{
    CTavScreenCreator creator;
    creator.CreateScreens(&Manager(), Client("minimal.json"));
    for (const std::string& name :
         {std::string(kDecoding), std::string(kProcessing), std::string(kAudioStatus), std::string(kVideoStatus),
          std::string(kServiceSelectSettings), std::string(kAudioProcessing), DecodingVideoSettings(1),
          std::string(kGenlock), std::string(kScte35Config), std::string(kSourceIdStatus)}) {
        Show(name);
        EXPECT_NE(Current(), name);
    }
}
