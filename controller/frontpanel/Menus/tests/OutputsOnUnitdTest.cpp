// The output branches as start-up builds them, on the panel and a real unitd: what each
// kind of edit writes, the output source by its row number under its shortened label, rows
// that follow the values they depend on, a status page following the hardware, and the
// transmit card found in whatever slot the unit has it.
#include <gtest/gtest.h>

#include "TreeOnUnitd.h"
#include "ScreenManager/ScreenNames.h"

namespace {

using namespace ScreenName;

class OutputsOnUnitdTest : public MenusTest::CTreeOnUnitd {
protected:
    OutputsOnUnitdTest() : CTreeOnUnitd(nullptr) {}
};

}  // namespace

TEST_F(OutputsOnUnitdTest, EachKindOfBasebandEditIsWrittenOnceToItsPathOrPort)
{
    Start("full.json");
    // A choice among the audio services, on the port's own instance.
    Show(kDigitalAudio);
    int since = m_pUnitd->NextWrite();
    Down(2);
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("aesaudioPort", since), Writes({".1.3=Audio 3 PCM"}));
    EXPECT_TRUE(PanelShows("Port 3: Audio 3 PCM"));

    // A line number on the secondary path; it is offered only while its data type is on.
    Show(OutputsHdAnc(2));
    since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("hdsdiCcCea708Line", since), Writes({".1.2=19"}));
    EXPECT_TRUE(PanelShows("Line Number: 19"));
    Press({KEY_UP, KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("hdsdiCcCea708State", since), Writes({".1.2=Disabled"}));
    EXPECT_TRUE(PanelShows("Line Number: 19", false));
    EXPECT_TRUE(PanelShows("RDD11: Disabled"));

    // A level with its decimal, on the analogue output's instance.
    Show(OutputsAnalog(4));
    since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_ENTER, KEY_RIGHT, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("analogaudioOutputLevel", since), Writes({".1.4=19.0"}));
    EXPECT_TRUE(PanelShows("Output Level: 19.0 dBu"));
}

TEST_F(OutputsOnUnitdTest, TheOutputSourceIsChosenByLabelAndWrittenAsItsRowNumber)
{
    Start("full.json");
    Show(kAsiOutputSettings);
    ASSERT_TRUE(PanelShows("Source: Descramble & Process"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_DOWN, KEY_ENTER, KEY_UP, KEY_UP, KEY_ENTER});  // past "Unknown", which writes nothing
    EXPECT_EQ(Written("tsoutputsrcSource", since), Writes({".1.1=1"}));
    EXPECT_TRUE(PanelShows("Source: Active Input"));

    // The status page follows the hardware while on view.
    Show(OutputsMpegIpStatus(1));
    ASSERT_TRUE(PanelShows("Source: Active Input"));
    Force("tsoutputsrcSource", ".4.1", 3);
    EXPECT_TRUE(PanelShows("Source: Descramble & Process"));
    Down(12);
    ASSERT_TRUE(PanelShows("Unicast MAC Status: Found"));
    Force("mpegiptxUnicastReceiverNotFound", ".4.1", "Not Found");
    EXPECT_TRUE(PanelShows("Unicast MAC Status: Not Found"));
}

TEST_F(OutputsOnUnitdTest, TheFecMatrixIsOfferedOnlyWhileFecIsOn)
{
    Start("full.json");
    Show(OutputsMpegIpSettings(1));
    Down(10);
    ASSERT_TRUE(PanelShows(">FEC Columns: 10"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_UP, KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("mpegiptxfecState", since), Writes({".4.1=Disabled"}));
    EXPECT_TRUE(PanelShows("FEC Columns:", false));
    EXPECT_TRUE(PanelShows("FEC Rows:", false));
}

TEST_F(OutputsOnUnitdTest, AUnitWithOnlyATransmitCardHasItsOutputsInItsOwnSlot)
{
    Start("minimal.json");
    Show(kTransportStreamOutputs);
    EXPECT_TRUE(PanelShows("MPEG/IP 1"));
    EXPECT_TRUE(PanelShows("MPEG/IP 2", false));
    // The card sits in slot 2: its stream is ".2.1".
    Show(OutputsMpegIpSettings(1));
    ASSERT_TRUE(PanelShows("Transmission: Disabled"));
    int since = m_pUnitd->NextWrite();
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(Written("tsoutputsrcState", since), Writes({".2.1=Enabled"}));
}
