// The home page and the capabilities the screen creator finds, in the tree it builds for the
// full and the minimal unit, drawn on the real display.
#include <gtest/gtest.h>

#include "Client/TavClient.h"
#include "Menus/MenuHome.h"
#include "PanelTest.h"
#include "ScreenManager/TavScreenCreator.h"
#include "Zor/Zor.h"

namespace {

class RootScreensTest : public PanelTest::CPanelTest {
protected:
    // The tree as start-up builds it, then "Home" on view.
    void Build(const std::string& unit)
    {
        CTavClient* pClient = Client(unit);
        m_creator.CreateScreens(&Manager(), pClient);
        Show("Home");
    }
    CTavScreenCreator m_creator;
};

// The first views of these screens and the main menu's entries are in the screen atlas.
TEST_F(RootScreensTest, FullUnitHomePageWorksOnlyOnViewAndFindsEveryCapability)
{
    Build("full.json");
    ASSERT_EQ(Current(), "Home");
    // The address poll runs only while the page is on view.
    EXPECT_EQ(Client()->GetWakeUpTimer().Count(), 1);
    Press(KEY_EXIT);
    EXPECT_EQ(Current(), "Home");
    Press(KEY_DOWN);
    EXPECT_EQ(Current(), "Home Main");
    EXPECT_EQ(Client()->GetWakeUpTimer().Count(), 0);
    Press(KEY_EXIT);
    EXPECT_EQ(Current(), "Home");
    EXPECT_EQ(Client()->GetWakeUpTimer().Count(), 1);
    // Off view the page draws nothing over the screen on view (its lines following the unit
    // are tested on unitd).
    CMenuHome* pHome = dynamic_cast<CMenuHome*>(Manager().GetCurrentScreen());
    Press(KEY_DOWN);
    const std::string menu = Panel();
    pHome->ManagedEvent("unitAlias", Zor::COid(".0"), Zor::CParam::String("Elsewhere"));
    EXPECT_EQ(Panel(), menu);

    // Every capability of the fully fitted unit is found.
    const CTavScreenCreator::Capabilities_t& caps = m_creator.GetCapabilities();
    EXPECT_TRUE(caps.decoder && caps.t2mi && caps.cardFrame && caps.genlock && caps.hdOutput &&
                caps.secondVideo && caps.scte35Processing && caps.biss && caps.camSlot &&
                caps.multiServiceDescrambling && caps.scte35Service && caps.esam && caps.cueTrigger &&
                caps.mpegIpTxFec && caps.inbandControl && caps.mpegIpTx && caps.tsInputSrc &&
                caps.tsOutputSrc);
    EXPECT_EQ(caps.audioDigital, 8u);
    EXPECT_EQ(caps.audioAnalog, 4u);
    EXPECT_EQ(caps.audioDecode, 8u);
    EXPECT_EQ(caps.inputLabels, 11u);
    for (const bool* pair : {caps.mpegIpRcv, caps.dvbS2In, caps.vsbIn, caps.turboPskIn})
        EXPECT_TRUE(pair[0] && pair[1]);
    EXPECT_EQ(caps.camSlotMultiService, (std::vector<bool>{true, false}));
}

TEST_F(RootScreensTest, MinimalUnitHasOnlyItsOwnCapabilities)
{
    Build("minimal.json");
    const CTavScreenCreator::Capabilities_t& caps = m_creator.GetCapabilities();
    EXPECT_FALSE(caps.decoder || caps.t2mi || caps.cardFrame || caps.mpegIpRcv[1] || caps.dvbS2In[0]);
    EXPECT_TRUE(caps.mpegIpRcv[0]);
    EXPECT_EQ(caps.inputLabels, 3u);
}

}  // namespace
