// The home page and the capabilities the screen creator finds, in the tree it builds for the
// full and the minimal unit, drawn on the real display.
#include <gtest/gtest.h>

#include "Client/TavClient.h"
#include "Menus/MenuHome.h"
#include "PanelTest.h"
#include "ScreenManager/TavScreenCreator.h"
#include "Zor/Zor.h"

using PanelTest::Row;

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
    CMenuHome* Home()
    {
        if (Current() != "Home")
            Show("Home");
        return dynamic_cast<CMenuHome*>(Manager().GetCurrentScreen());
    }
    // What the controller would announce after a change of a read-only object.
    void Announce(const std::string& name, const std::string& instance, const Zor::CParam& value)
    {
        dynamic_cast<CMenuHome*>(Manager().GetCurrentScreen())
            ->ManagedEvent(name, Zor::COid(instance), value);
    }

    CTavScreenCreator m_creator;
};

// The first views of these screens and the main menu's entries are in the screen atlas.
TEST_F(RootScreensTest, FullUnitHomePagePollsOnlyOnViewAndFindsEveryCapability)
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

TEST_F(RootScreensTest, HomeLinesFollowTheControllersChanges)
{
    Build("full.json");
    Announce("unitAlias", ".0", Zor::CParam::String("Studio B"));
    EXPECT_NE(Row(Panel(), 0).find("Studio B"), std::string::npos) << Panel();

    Announce("selectedserviceServiceName", ".1.1", Zor::CParam::String(""));
    EXPECT_EQ(Row(Panel(), 4), "Service: Service 1");

    // Another input in use: its label and rate, without the part from "Slot" on.
    Announce("inputCurrentActiveInputId", ".1.1", Zor::CParam::Int(401));
    EXPECT_EQ(Row(Panel(), 1), "Bitrate: 15.000 Mbps");
    EXPECT_EQ(Row(Panel(), 2), "Input: MPEG/IP Stream 1");
    Announce("inputCurrentActiveInputId", ".1.1", Zor::CParam::Int(301));
    EXPECT_EQ(Row(Panel(), 1), "Bitrate: 0.000 Mbps");
    Announce("inputCurrentActiveInputId", ".1.1", Zor::CParam::Int(999));
    EXPECT_EQ(Row(Panel(), 1), "Bitrate: 0.000 Mbps");
    EXPECT_EQ(Row(Panel(), 2), "Input: Unknown");

    // Off view the page draws nothing over the screen on view.
    CMenuHome* pHome = Home();
    Press(KEY_DOWN);
    const std::string menu = Panel();
    pHome->ManagedEvent("unitAlias", Zor::COid(".0"), Zor::CParam::String("Elsewhere"));
    EXPECT_EQ(Panel(), menu);
}

TEST_F(RootScreensTest, HomeKeysFollowTheLockMode)
{
    Build("full.json");
    // Disabled: no arrows, the disabled glyph, and no key leaves the page.
    ASSERT_TRUE(Client()->SendData("frontpanelLockMode", ".0", "3"));
    Show("Home Main");
    Show("Home");
    EXPECT_PANEL("home_panel_disabled");
    for (int key : {KEY_LEFT, KEY_UP, KEY_RIGHT, KEY_DOWN, KEY_EXIT, KEY_ENTER}) {
        Press(key);
        EXPECT_EQ(Current(), "Home") << "key " << key;
    }
    // Locked: the menus stay reachable (read-only), EXIT stays.
    ASSERT_TRUE(Client()->SendData("frontpanelLockMode", ".0", "2"));
    Show("Home Main");
    Show("Home");
    EXPECT_EQ(Row(Panel(), 0).back(), '@') << Panel();
    Press(KEY_EXIT);
    EXPECT_EQ(Current(), "Home");
    Press(KEY_LEFT);
    EXPECT_EQ(Current(), "Home Main");
}

}  // namespace
