// Two-way choices, the scrolling row and the display row: their keys and how they look.
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/GenericDisplayLine.h"
#include "Lines/GenericEditRemoveLine.h"
#include "Lines/GenericKeepRemoveLine.h"
#include "Lines/GenericScrollLine.h"
#include "Lines/GenericYesNoLine.h"
#include "PanelTest.h"
#include "TestScreens.h"

using LineTest::Keys;

TEST(TwoWayLines, LeftAndRightChooseWithWrapAndEveryKeyAnswersTrue)
{
    CGenericYesNoLine yesNo;
    EXPECT_EQ("Yes", yesNo.GetValue());
    EXPECT_TRUE(Keys(yesNo, "R"));
    EXPECT_EQ("No", yesNo.GetValue());
    EXPECT_TRUE(Keys(yesNo, "R"));
    EXPECT_EQ("Yes", yesNo.GetValue()) << "RIGHT on the second wraps to the first";
    EXPECT_TRUE(Keys(yesNo, "L"));
    EXPECT_EQ(1, yesNo.GetSelectedIndex()) << "LEFT on the first wraps to the second";
    EXPECT_TRUE(Keys(yesNo, "UDEX"));
    EXPECT_EQ("No", yesNo.GetValue()) << "other keys are the menu style's";

    EXPECT_TRUE(yesNo.SetIndex(2)) << "out of range: unchanged, yet true";
    EXPECT_TRUE(yesNo.SetIndex(-1));
    EXPECT_EQ("No", yesNo.GetValue());
    EXPECT_TRUE(yesNo.SetValue("Yes"));
    EXPECT_FALSE(yesNo.SetValue("Maybe"));
    EXPECT_EQ(0, yesNo.GetSelectedIndex());

    CGenericKeepRemoveLine keep;
    keep.SetReadOnly(true);
    EXPECT_TRUE(Keys(keep, "R"));
    EXPECT_EQ("Keep", keep.GetValue()) << "a read-only choice ignores keys";
    EXPECT_EQ(6, keep.GetIdleHint());
    CGenericEditRemoveLine edit;
    EXPECT_EQ("Edit", edit.GetValue());
    EXPECT_EQ(5, edit.GetEditHint());
    EXPECT_EQ(0, yesNo.GetEditHint());
}

TEST(GenericScrollLine, SlidesOverALongTextWithoutEverEditing)
{
    // 52 characters from column 1: 23 are out of view.
    CGenericScrollLine line("Input TS Sync Loss - Loc: DVB-S2 Card 2, RF Input 1.");
    EXPECT_TRUE(line.TakesKeysWhileIdle());
    EXPECT_FALSE(Keys(line, "E"));
    EXPECT_FALSE(Keys(line, "R"));
    EXPECT_EQ(10, line.GetOffset());
    Keys(line, "RR");
    EXPECT_EQ(23, line.GetOffset()) << "the end of the text stops at the end of the row";
    Keys(line, "R");
    EXPECT_EQ(23, line.GetOffset());
    Keys(line, "L");
    EXPECT_EQ(13, line.GetOffset());
    Keys(line, "D");
    EXPECT_EQ(0, line.GetOffset()) << "leaving the row shows its start again";

    CGenericScrollLine shortText("Fan Failure");
    Keys(shortText, "R");
    EXPECT_EQ(0, shortText.GetOffset()) << "a text that fits never moves";
}

class ChoicePanelTest : public PanelTest::CPanelTest {};

TEST_F(ChoicePanelTest, ChoicesHighlightTheirPendingTextAndScrollRowsSlide)
{
    CGenericScrollLine* pAlarm =
        new CGenericScrollLine("Input TS Sync Loss - Loc: DVB-S2 Card 2, RF Input 1.");
    CGenericYesNoLine* pYesNo = new CGenericYesNoLine();
    pYesNo->SetSelectable(false);
    std::vector<PanelTest::Row_t> rows = {{"", "", true, pAlarm},
                                          {"", "", false, new CGenericDisplayLine("No Active Errors")},
                                          {"Save? ", "", false, pYesNo},
                                          {"", "", false, new CGenericKeepRemoveLine()}};
    Add(new PanelTest::CTableScreen("Active Errors", "No Screen", rows), "Errors");
    pYesNo->SetIndex(1);
    Show("Errors");
    Press(KEY_RIGHT);
    EXPECT_PANEL("lines_choices_and_scrolled_alarm");
}
