// Screens and the screen manager: routing, switching by name, and a small tree of screens
// driven end to end.
#include <gtest/gtest.h>

#include "Lines/SelectLine.h"
#include "PanelTest.h"
#include "ScreenManager/MenuStyle.h"
#include "TestScreens.h"

using PanelTest::CTableScreen;
using PanelTest::CTextLine;
using PanelTest::MenuRows;
using PanelTest::Row_t;

using PanelTest::Key;

namespace {

class ScreenManagerTest : public PanelTest::CPanelTest {
protected:
    // Main Menu -> Inputs / Outputs / Alarms / System / About, and the lock placeholder.
    void BuildTree()
    {
        AddTable("Main Menu", "No Screen",
                 MenuRows({{"Inputs", "Inputs"},
                           {"Outputs", "Outputs"},
                           {"Alarms", "Alarms"},
                           {"System", "System"},
                           {"About", "About"}}));
        CSelectLine* pMarker = new CSelectLine();
        m_pInputs =
            AddTable("Inputs", "Main Menu",
                     {Row_t{"Input:", "", true, new CTextLine("ASI")}, Row_t{"Marker:", "", true, pMarker},
                      Row_t{"Bit rate:", "", false, new CTextLine("38.0 Mbit/s")}});
        AddTable("Outputs", "Main Menu", {});
        AddTable("Lock/Unlock Front Panel", "Main Menu", {});
    }

    CTableScreen* m_pInputs = nullptr;
};

}  // namespace

TEST_F(ScreenManagerTest, TreeNavigationEndToEnd)
{
    BuildTree();
    Show("Main Menu");
    EXPECT_PANEL("tree_main_menu");

    Press(KEY_UP);
    EXPECT_PANEL("tree_main_menu_up_selects_last");
    Press({KEY_DOWN, KEY_ENTER});
    EXPECT_EQ("Inputs", Current());
    EXPECT_PANEL("tree_inputs");

    Press({KEY_DOWN, KEY_ENTER, KEY_UP});
    EXPECT_PANEL("tree_inputs_marker_editing");
    Press(KEY_ENTER);

    Press(KEY_EXIT);
    EXPECT_EQ("Main Menu", Current());
    EXPECT_TRUE(Manager().IsNavigated()) << "EXIT to the parent counts as navigating back";
    EXPECT_EQ(1, m_pInputs->Leaves());
    EXPECT_PANEL("tree_back_to_main_menu");
}

TEST_F(ScreenManagerTest, UnknownAndPlaceholderNamesKeepTheScreenOnView)
{
    BuildTree();
    Show("Main Menu");
    Show("Nowhere");
    Show("No Screen");
    EXPECT_EQ("Main Menu", Current());

    // "Alarms" is named by a line but was never added.
    Press({KEY_DOWN, KEY_DOWN, KEY_ENTER});
    EXPECT_EQ("Main Menu", Current());

    // A lookup leaves a null entry behind; adding the screen later still works.
    AddTable("Alarms", "Main Menu", {});
    Press(KEY_ENTER);
    EXPECT_EQ("Alarms", Current());
}

TEST_F(ScreenManagerTest, FirstScreenAddedUnderANameWins)
{
    CTableScreen* pFirst = AddTable("Home", "No Screen", {});
    CTableScreen* pSecond = AddTable("Home", "No Screen", {});
    Show("Home");
    EXPECT_EQ(pFirst, Manager().GetCurrentScreen());
    EXPECT_EQ(0, pSecond->Enters());
    EXPECT_EQ("Home", pSecond->GetName());
}

TEST_F(ScreenManagerTest, IgnoresKeysBeforeScreensAndKeyNone)
{
    Press(KEY_DOWN);
    Manager().ShowLockScreen();
    EXPECT_EQ("", Current());

    BuildTree();
    Show("Main Menu");
    Press(KEY_NONE);
    EXPECT_EQ(0, Manager().GetCurrentScreen()->GetMenu()->GetCursor().GetIndex());

    KeyPress_t down = Key(KEY_DOWN);
    EXPECT_FALSE(Manager().OnEvent(nullptr, KEYPAD_EVENT_COMBO_DOWN, &down, nullptr));
    EXPECT_TRUE(Manager().OnEvent(nullptr, KEYPAD_EVENT_KEY, &down, nullptr));
    EXPECT_EQ(1, Manager().GetCurrentScreen()->GetMenu()->GetCursor().GetIndex());

    Manager().ShowLockScreen();
    EXPECT_EQ("Lock/Unlock Front Panel", Current());
    EXPECT_TRUE(Manager().IsLockRequested());
}

TEST_F(ScreenManagerTest, RefreshDrawsOnlyEnabledScreensOnView)
{
    CTextLine* pShown = new CTextLine("a");
    CTextLine* pHidden = new CTextLine("b");
    CTableScreen* pOnView = AddTable("On", "No Screen", {Row_t{"", "", true, pShown}});
    CTableScreen* pLeft = AddTable("Off", "No Screen", {Row_t{"", "", true, pHidden}});
    Show("Off");
    Show("On");
    int shown = pShown->Draws();
    int hidden = pHidden->Draws();

    pLeft->Refresh(1);
    EXPECT_EQ(hidden, pHidden->Draws()) << "a screen that was left never draws";
    pOnView->SetDrawEnabled(false);
    pOnView->Refresh(1);
    EXPECT_EQ(shown, pShown->Draws());
    pOnView->SetDrawEnabled(true);
    pOnView->Refresh(1);
    EXPECT_EQ(shown + 1, pShown->Draws());
}

TEST(ScreenDeathTest, UnknownMenuStyleIsAProgrammingError)
{
    EXPECT_DEATH(CScreen("Menu Style Fancy"),
                 "controller/frontpanel/ScreenManager/Screen:[0-9]+: CScreen::CScreen\\(const string&\\): "
                 "Assertion `m_pMenu != __null' failed");
}
