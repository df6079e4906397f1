// Lists: hidden entries, wrap-around, commit and abandon, and the two-row list as the
// long-list style lays it out (what a list writes is tested on the screens over unitd).
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/GenericDummyLine.h"
#include "Lines/GenericList.h"
#include "Lines/GenericLongList.h"
#include "PanelTest.h"
#include "TestScreens.h"

using LineTest::Steps;

namespace {

void Fill(CGenericList& list, const std::vector<std::string>& texts)
{
    for (const std::string& text : texts)
        list.AddEntry(text);
}

}  // namespace

TEST(GenericList, HiddenEntriesAreNeverOfferedAndEditsWrap)
{
    CGenericList list;
    // No entries: the edit is taken, UP and DOWN change nothing, ENTER ends it.
    Steps(list, {{"", ""}, {"UDE", "", 1}, {"UDE", "", 0}});
    Fill(list, {"A", "B", "C", "D", "E"});
    int commits = 0;
    list.SetCommitHandler([&](CGenericList&) { ++commits; });
    EXPECT_TRUE(list.HideEntry(1));
    EXPECT_TRUE(list.HideEntry(3));
    EXPECT_FALSE(list.HideEntry(3));
    Steps(list, {
                    {"XEU", "C"},  // UP goes to the next visible entry
                    {"U", "E"},
                    {"U", "A"},     // UP on the last visible entry shows the first
                    {"D", "E"},     // DOWN on the first shows the last
                    {"LR", "E"},    // LEFT and RIGHT do nothing
                    {"X", "A", 0},  // EXIT restores the committed entry
                    {"EU", "C"},    // and the cursor with it
                    {"E", "C", 0},
                });
    EXPECT_EQ(2, list.GetCommittedIndex());
    EXPECT_EQ(1, commits) << "ENTER commits, EXIT does not";

    EXPECT_FALSE(list.SetValue("D")) << "a hidden entry";
    EXPECT_FALSE(list.SetValue("c")) << "texts compare exactly";
    EXPECT_FALSE(list.SetIndex(5));
    EXPECT_EQ("C", list.GetValue());
    EXPECT_TRUE(list.ShowEntry(3));
    EXPECT_TRUE(list.SetValue("D"));
    Steps(list, {{"EDE", "C"}});  // the shown entry is offered again

    CGenericList readOnly;
    Fill(readOnly, {"On", "Off"});
    readOnly.SetReadOnly(true);
    Steps(readOnly, {{"E", "On", 0}});
}

class ListPanelTest : public PanelTest::CPanelTest {};

TEST_F(ListPanelTest, TwoRowListInTheLongListStyle)
{
    CGenericLongList* pList = new CGenericLongList();
    Fill(*pList, {"Lo/Ro Stereo", "Lt/Rt (Dolby Surround)"});
    CGenericDummyLine* pSecondRow = pList->TakeDummyLine();
    ASSERT_NE(nullptr, pSecondRow);
    EXPECT_EQ(nullptr, pList->TakeDummyLine()) << "handed over once";
    EXPECT_TRUE(pList->HasCompanion());
    EXPECT_EQ(2u, pList->GetKind());
    std::vector<PanelTest::Row_t> rows = {{"Mode: ", "", true, new PanelTest::CTextLine("Auto")},
                                          {"Downmix Operation Mode:", "", true, pList},
                                          {"", "", false, pSecondRow},
                                          {"Offset: ", "", true, new PanelTest::CTextLine("0")},
                                          {"Range: ", "", true, new PanelTest::CTextLine("Line")},
                                          {"Extra: ", "", true, new PanelTest::CTextLine("None")}};
    Add(new PanelTest::CTableScreen("Audio", "No Screen", rows, "Menu Style Long List"), "Audio");
    Show("Audio");
    for (int key : {KEY_DOWN, KEY_ENTER, KEY_UP})
        Press(key);
    EXPECT_PANEL("lines_long_list_editing");

    // Commit, then scroll until the label row has gone off the top: the entry row stays.
    for (int key : {KEY_ENTER, KEY_DOWN, KEY_DOWN, KEY_DOWN})
        Press(key);
    EXPECT_EQ("Lt/Rt (Dolby Surround)", pList->GetValue());
    EXPECT_PANEL("lines_long_list_scrolled");
}
