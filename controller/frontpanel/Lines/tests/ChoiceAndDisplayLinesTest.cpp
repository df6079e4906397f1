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
    // RIGHT on the second wraps to the first, LEFT on the first to the second; other keys
    // are the menu style's.
    const std::pair<const char*, const char*> steps[] = {
        {"R", "No"}, {"R", "Yes"}, {"L", "No"}, {"UDEX", "No"}};
    for (const auto& step : steps) {
        EXPECT_TRUE(Keys(yesNo, step.first)) << step.first;
        EXPECT_EQ(step.second, yesNo.GetValue()) << step.first;
    }
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
    // 52 characters from column 1: 23 are out of view. The end of the text stops at the end
    // of the row; leaving the row shows its start again.
    CGenericScrollLine line("Input TS Sync Loss - Loc: DVB-S2 Card 2, RF Input 1.");
    EXPECT_TRUE(line.TakesKeysWhileIdle());
    EXPECT_FALSE(Keys(line, "E"));
    const std::pair<const char*, int> steps[] = {{"R", 10}, {"RR", 23}, {"R", 23}, {"L", 13}, {"D", 0}};
    for (const auto& step : steps) {
        EXPECT_FALSE(Keys(line, step.first));
        EXPECT_EQ(step.second, line.GetOffset()) << step.first;
    }
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
