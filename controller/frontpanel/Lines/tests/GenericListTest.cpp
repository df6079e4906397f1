// Lists: hidden entries, wrap-around, commit and abandon, the text written to the
// controller, and the two-row list as the long-list style lays it out.
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/GenericDummyLine.h"
#include "Lines/GenericList.h"
#include "Lines/GenericLongList.h"
#include "PanelTest.h"
#include "TestScreens.h"

using LineTest::Keys;

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
    EXPECT_EQ("", list.GetValue()) << "no entries";
    EXPECT_TRUE(Keys(list, "UDE")) << "an empty list takes the edit";
    EXPECT_FALSE(Keys(list, "UDE")) << "UP and DOWN change nothing, ENTER ends it";
    EXPECT_EQ("", list.GetValue());
    Fill(list, {"A", "B", "C", "D", "E"});
    EXPECT_TRUE(list.HideEntry(1));
    EXPECT_TRUE(list.HideEntry(3));
    EXPECT_FALSE(list.HideEntry(3));

    Keys(list, "XEU");
    EXPECT_EQ("C", list.GetValue()) << "UP goes to the next visible entry";
    Keys(list, "U");
    EXPECT_EQ("E", list.GetValue());
    Keys(list, "U");
    EXPECT_EQ("A", list.GetValue()) << "UP on the last visible entry shows the first";
    Keys(list, "D");
    EXPECT_EQ("E", list.GetValue()) << "DOWN on the first shows the last";
    Keys(list, "LR");
    EXPECT_EQ("E", list.GetValue()) << "LEFT and RIGHT do nothing";
    EXPECT_FALSE(Keys(list, "X"));
    EXPECT_EQ("A", list.GetValue()) << "EXIT restores the committed entry";
    Keys(list, "EU");
    EXPECT_EQ("C", list.GetValue()) << "and the cursor with it";
    EXPECT_FALSE(Keys(list, "E"));
    EXPECT_EQ(2, list.GetCommittedIndex());

    EXPECT_FALSE(list.SetValue("D")) << "a hidden entry";
    EXPECT_FALSE(list.SetValue("c")) << "texts compare exactly";
    EXPECT_FALSE(list.SetIndex(5));
    EXPECT_EQ("C", list.GetValue());
    EXPECT_TRUE(list.ShowEntry(3));
    EXPECT_TRUE(list.SetValue("D"));
    Keys(list, "EDE");
    EXPECT_EQ("C", list.GetValue()) << "the shown entry is offered again";

    CGenericList readOnly;
    Fill(readOnly, {"On", "Off"});
    readOnly.SetReadOnly(true);
    EXPECT_FALSE(Keys(readOnly, "E"));
    EXPECT_FALSE(readOnly.IsEditing());
}

class ListPanelTest : public PanelTest::CPanelTest {};

TEST_F(ListPanelTest, EnterWritesTheEntrysControllerTextAndExitNothing)
{
    CTavClient* pClient = Client();
    LineTest::CWriteRecorder writes(pClient, "inputPrimarySrc", ".1.1");
    CGenericList list;
    list.AddEntry("ASI", "101");
    list.AddEntry("DVB-S2 1", "201");
    list.AddEntry("MPEG/IP 1", "401");
    list.SetClient(pClient);
    list.BindObject("inputPrimarySrc", ".1.1");
    int commits = 0;
    list.SetCommitHandler([&](CGenericList&) { ++commits; });
    list.RefreshValue();
    EXPECT_EQ("DVB-S2 1", list.GetText()) << "the controller's id picks the entry";

    Keys(list, "EUX");
    EXPECT_TRUE(writes.WritesBefore("201").empty());
    Keys(list, "EUE");
    EXPECT_EQ((std::vector<std::string>{"401"}), writes.WritesBefore("201"));
    EXPECT_EQ(1, commits);
}

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
