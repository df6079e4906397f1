// The event-driven screen bases on an embedded unit: a navigation menu read once, status
// values filed from events, and polling on the wake-up timer. Lock modes and settings pages
// are tested over both links with the menus.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "Client/TavClient.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericLine.h"
#include "PanelTest.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/TableScreen.h"
#include "ScreenManager/TavNavMenuScreen.h"
#include "ScreenManager/TavPollScreen.h"
#include "TestScreens.h"

namespace {

class CNavMenu : public CTavNavMenuScreen {
public:
    CNavMenu() { m_pMenu->SetTitle("Nav"); }
    void BuildMenu() override
    {
        ++m_iBuilds;
        AddRequest("unitAlias.0");
        m_pMenu->AppendLine(new CGenericDisplayLine(), "About", "About");
    }
    void OnValuesLoaded() override { m_strSteps += "values "; }
    void OnMenuLoaded() override { m_strSteps += "menu "; }
    void OnEnter() override { m_strSteps += "enter "; }

    int m_iBuilds = 0;
    std::string m_strSteps;
};

class CAliasStatus : public CTavStatusScreen {
public:
    CAliasStatus() { m_pMenu->SetTitle("Alias Status"); }
    void BuildLines() override
    {
        AddRequest("unitAlias.0");
        m_pMenu->AppendLine(new CGenericDisplayLine(), "Alias: ");
    }
    void UpdateLines(int mode) override
    {
        m_pMenu->GetLines().GetLine(0)->SetValue(CachedValue("unitAlias", GetEventInstance()).ToString("?"));
        CTavStatusScreen::UpdateLines(mode);
    }
};

class CTicker : public CTavPollScreen {
public:
    CTicker() { m_pMenu->SetTitle("Ticker"); }
    void Enter() override
    {
        CTavPollScreen::Enter();
        StartPolling(5);
    }
    void Leave() override { StopPolling(); }
    void ProcessRequest() override
    {
        RunOnViewFromTimer([this]() {
            ++m_iTicks;
            m_pMenu->SetTitle("Tick");
            m_pMenu->Redraw(1);
        });
    }

    std::atomic<int> m_iTicks{0};
};

class EventScreensTest : public PanelTest::CPanelTest {
protected:
    void SetUp() override
    {
        Client();
        Add(new PanelTest::CTableScreen("Elsewhere", "No Screen", {}), "Elsewhere");
    }
};

}  // namespace

TEST_F(EventScreensTest, NavigationMenuReadsItsValuesOnce)
{
    CNavMenu* pMenu = new CNavMenu();
    Add(pMenu, "Nav");
    Show("Nav");
    EXPECT_EQ(pMenu->CachedValue("unitAlias", ".0").ToString(""), "Uplink IRD 3");
    Show("Elsewhere");
    ASSERT_TRUE(Client()->SendData("unitAlias", ".0", "Changed"));
    Show("Nav");
    EXPECT_EQ(pMenu->CachedValue("unitAlias", ".0").ToString(""), "Uplink IRD 3");
    EXPECT_EQ(pMenu->m_iBuilds, 1);
    EXPECT_EQ(pMenu->m_strSteps, "values menu enter enter ");
}

TEST_F(EventScreensTest, StatusPageFilesEventsWhileOnView)
{
    CAliasStatus* pStatus = new CAliasStatus();
    pStatus->SetEventInstance(".0");
    Add(pStatus, "Alias Status");
    Show("Alias Status");
    EXPECT_NE(Panel().find("Alias: Uplink IRD 3"), std::string::npos) << Panel();

    ASSERT_TRUE(Client()->SendData("unitAlias", ".0", "Second"));
    EXPECT_TRUE(PanelTest::WaitUntil([&]() { return Panel().find("Alias: Second") != std::string::npos; })) << Panel();
    EXPECT_EQ(pStatus->GetUpdateCount(), 1);

    // Entry reads afresh.
    Show("Elsewhere");
    ASSERT_TRUE(Client()->SendData("unitAlias", ".0", "Third"));
    Show("Alias Status");
    EXPECT_NE(Panel().find("Alias: Third"), std::string::npos) << Panel();
}

TEST_F(EventScreensTest, PollingRunsOnlyWhileOnView)
{
    CTicker* pTicker = new CTicker();
    Add(pTicker, "Ticker");
    Show("Ticker");
    ASSERT_TRUE(PanelTest::WaitUntil([&]() { return pTicker->m_iTicks.load() >= 3; }));
    EXPECT_NE(Panel().find("Tick"), std::string::npos);

    Show("Elsewhere");
    int ticks = pTicker->m_iTicks.load();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(pTicker->m_iTicks.load(), ticks);
    pTicker->Refresh(1);  // an event for a page off view draws nothing
    EXPECT_EQ(Panel().find("Tick"), std::string::npos) << Panel();
}
