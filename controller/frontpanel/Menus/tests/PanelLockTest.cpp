// The panel lock as a person lives it: a first password, lock, read-only settings, unlock,
// disable, the lock combination from the home page, and a password change. Messages are
// read off the panel while they are up.
#include <gtest/gtest.h>

#include "Client/TavClient.h"
#include "Lines/GenericStringLine.h"
#include "Menus/MenuChangePanelPassword.h"
#include "Menus/MenuFrontpanelLock.h"
#include "PanelTest.h"
#include "ScreenManager/MenuStyle.h"
#include "ScreenManager/TavConfigScreen.h"
#include "ScreenManager/TavScreenCreator.h"

using PanelTest::Row;

namespace {

const char* const kLock = "Lock/Unlock Front Panel";

// Rows 1 and 2 of every message, "first|second", and the first message's whole panel.
struct Messages_t {
    PanelTest::CPanelRig* pRig;
    std::vector<std::string> shown;
    std::string firstPanel;

    void Record()
    {
        std::string panel = pRig->Dump();
        if (shown.empty())
            firstPanel = panel;
        shown.push_back(
            Row(panel, 1).substr(Row(panel, 1).find_first_not_of(' ')) + "|" +
            (Row(panel, 2).empty() ? "" : Row(panel, 2).substr(Row(panel, 2).find_first_not_of(' '))));
    }
};

// A password screen whose message pause reads the panel instead of waiting.
template <class Screen>
class CRecording : public Screen {
public:
    explicit CRecording(Messages_t& messages) : m_rMessages(messages) {}

protected:
    void Pause(Qb::uint32) override { m_rMessages.Record(); }

private:
    Messages_t& m_rMessages;
};

// A settings page, to see the lock make settings read-only.
class CAliasSettings : public CTavConfigScreen {
public:
    CAliasSettings()
    {
        m_pMenu->SetTitle("Unit Alias");
        m_pMenu->SetParentScreen("Home Main");
    }
    void BuildLines() override
    {
        CGenericStringLine* pLine = new CGenericStringLine(20, 4);
        pLine->BindObject("unitAlias", ".0");
        m_pMenu->AppendLine(pLine, "Alias: ");
        AddRequest("unitAlias.0");
    }
};

class CLockTreeCreator : public CTavScreenCreator {
public:
    explicit CLockTreeCreator(Messages_t& messages) : m_rMessages(messages) {}

protected:
    void BuildAdmin() override
    {
        Add(new CRecording<CMenuFrontpanelLock>(m_rMessages), kLock);
        Add(new CRecording<CMenuChangePanelPassword>(m_rMessages), "Change Panel Password");
        Add(new CAliasSettings(), "Unit Alias");
    }

private:
    Messages_t& m_rMessages;
};

class PanelLockTest : public PanelTest::CPanelTest {
protected:
    PanelLockTest() : m_messages{&Rig(), {}, {}}, m_creator(m_messages) {}

    void Build(const std::string& unit)
    {
        m_creator.CreateScreens(&Manager(), Client(unit));
        Show("Home");
    }
    // Types digits into the selected entry: ENTER, UP until the digit, RIGHT, ..., ENTER.
    void Type(const std::string& digits)
    {
        Press(KEY_ENTER);
        for (size_t i = 0; i < digits.size(); ++i) {
            if (i > 0)
                Press(KEY_RIGHT);
            for (int up = 0; up <= digits[i] - '0'; ++up)
                Press(KEY_UP);
        }
        Press(KEY_ENTER);
    }
    std::string Stored(const char* name) { return Client()->GetData(name, ".0"); }
    // The title cells, between the indicators.
    std::string Title()
    {
        std::string cells = Row(Panel(), 0).substr(1, 25);
        cells.erase(cells.find_last_not_of(' ') + 1);
        return cells.substr(cells.find_first_not_of(' '));
    }
    std::string LastMessage() { return m_messages.shown.empty() ? "" : m_messages.shown.back(); }

    Messages_t m_messages;
    CLockTreeCreator m_creator;
};

TEST_F(PanelLockTest, SetLockUnlockDisableAndChangeThePassword)
{
    Build("minimal.json");
    ASSERT_EQ(Stored("frontpanelPassword"), "");
    Show(kLock);

    // A first password of two characters is refused; three are taken.
    Type("12");
    EXPECT_EQ(LastMessage(), "Password is too short.|Please try again.");
    EXPECT_TRUE(PanelTest::MatchesGolden("lock_message_too_short", m_messages.firstPanel));
    EXPECT_EQ(Stored("frontpanelPassword"), "");
    Type("123");
    EXPECT_EQ(LastMessage(), "Set Panel Password Success|");
    EXPECT_EQ(Stored("frontpanelPassword"), "123");
    EXPECT_PANEL("lock_mode_choice");

    // "None" writes nothing; "Lock Panel" locks.
    Press({KEY_ENTER, KEY_ENTER});
    EXPECT_EQ(m_messages.shown.size(), 2u);
    EXPECT_EQ(Stored("frontpanelLockMode"), "1");
    Press({KEY_ENTER, KEY_UP, KEY_ENTER});
    EXPECT_EQ(LastMessage(), "Panel Locked|");
    EXPECT_EQ(Stored("frontpanelLockMode"), "2");
    EXPECT_EQ(Title(), "Unlock Panel");

    // Settings are shown with the lock glyph and cannot be edited.
    Show("Unit Alias");
    EXPECT_EQ(Row(Panel(), 0)[0], '#') << Panel();
    Press(KEY_ENTER);
    EXPECT_FALSE(Manager().GetCurrentScreen()->IsEditing());

    // A wrong password changes nothing; the right one unlocks.
    Show(kLock);
    Type("124");
    EXPECT_EQ(LastMessage(), "Invalid Password|Please try again.");
    EXPECT_EQ(Stored("frontpanelLockMode"), "2");
    Type("123");
    EXPECT_EQ(LastMessage(), "Panel Unlocked|");
    EXPECT_EQ(Stored("frontpanelLockMode"), "1");

    // Disable; from the home page the lock combination brings the lock screen back, and
    // EXIT while disabled returns to the home page.
    Press({KEY_ENTER, KEY_UP, KEY_UP, KEY_ENTER});
    EXPECT_EQ(LastMessage(), "Panel Disabled|");
    EXPECT_EQ(Stored("frontpanelLockMode"), "3");
    Show("Home");
    Press(KEY_ENTER);
    EXPECT_EQ(Current(), "Home");
    Manager().ShowLockScreen();
    EXPECT_EQ(Current(), kLock);
    EXPECT_EQ(Title(), "Unlock Panel");
    Press(KEY_EXIT);
    EXPECT_EQ(Current(), "Home");

    // Unlock, then change the password: a wrong old one, a new one too short, then done.
    Manager().ShowLockScreen();
    Type("123");
    EXPECT_EQ(Stored("frontpanelLockMode"), "1");
    Press({KEY_DOWN, KEY_ENTER});
    ASSERT_EQ(Current(), "Change Panel Password");
    Type("999");
    Press(KEY_DOWN);
    Type("456");
    EXPECT_EQ(LastMessage(), "Invalid Password|Please try again.");
    Press(KEY_UP);
    Type("123");
    Press(KEY_DOWN);
    Type("45");
    EXPECT_EQ(LastMessage(), "Password is too short.|Please try again.");
    Type("456");
    EXPECT_EQ(LastMessage(), "Password Changed|Successfully.");
    EXPECT_EQ(Stored("frontpanelPassword"), "456");
    EXPECT_EQ(Current(), kLock);
    EXPECT_EQ(Title(), "Lock Panel");

    // Leaving the change screen writes nothing.
    Press({KEY_DOWN, KEY_ENTER});
    Type("789");
    Press(KEY_EXIT);
    EXPECT_EQ(Current(), kLock);
    EXPECT_EQ(Stored("frontpanelPassword"), "456");
}

}  // namespace
