// Line base, container and the two simplest lines.
#include <gtest/gtest.h>

#include <vector>

#include "Client/TavClient.h"
#include "LineTestKit.h"
#include "Lines/GenericDummyLine.h"
#include "Lines/LineContainer.h"
#include "Lines/SelectLine.h"
#include "PanelTest.h"
#include "TestScreens.h"

using PanelTest::Key;

namespace {

// Counts deletions so ownership can be checked.
class CCountedLine : public CGenericLine {
public:
    explicit CCountedLine(int* pDeleted) : m_pDeleted(pDeleted) {}
    ~CCountedLine() override { ++*m_pDeleted; }

private:
    int* m_pDeleted;
};

// Slot indices of the shown lines, in shown order.
std::vector<int> Shown(const CLineContainer& lines)
{
    std::vector<int> indices;
    for (int i = 0; i < lines.GetCount(); ++i)
        indices.push_back(lines.FindIndex(lines.GetLine(i)));
    return indices;
}

}  // namespace

TEST(LineContainer, ShownLinesStayInSlotOrderWhateverTheCalls)
{
    CLineContainer lines;
    std::vector<CGenericLine*> slots;
    for (int i = 0; i < 5; ++i) {
        lines.AddSlot(i == 2 ? "Target" : "");
        slots.push_back(new CGenericLine());
        lines.SetLine(slots.back(), static_cast<unsigned>(i));
    }
    EXPECT_TRUE(lines.HideLine(3));
    EXPECT_TRUE(lines.HideLine(1));
    EXPECT_FALSE(lines.HideLine(1)) << "hiding a hidden line";
    EXPECT_EQ((std::vector<int>{0, 2, 4}), Shown(lines));
    EXPECT_EQ("Target", lines.GetTarget(1)) << "targets follow the shown positions";
    EXPECT_EQ(0, lines.FindPosition(slots[0]));
    EXPECT_EQ(2, lines.FindPosition(slots[4])) << "positions count shown lines only";
    EXPECT_EQ(-1, lines.FindPosition(slots[3])) << "a hidden line has no position";

    EXPECT_TRUE(lines.ShowLine(3));
    EXPECT_TRUE(lines.ShowLine(1));
    EXPECT_TRUE(lines.ShowLine(1)) << "showing a shown line still reports true";
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3, 4}), Shown(lines));

    // Removing a slot renumbers the later ones, in both sequences.
    CGenericLine* pFourth = lines.GetLine(3);
    EXPECT_TRUE(lines.HideLine(4));
    EXPECT_TRUE(lines.RemoveSlot(1));
    EXPECT_EQ(2, lines.FindIndex(pFourth));
    EXPECT_EQ((std::vector<int>{0, 1, 2}), Shown(lines));
    EXPECT_EQ("Target", lines.GetTarget(1));
    EXPECT_TRUE(lines.ShowLine(3));
    EXPECT_EQ(4, lines.GetCount());
    EXPECT_FALSE(lines.RemoveSlot(4));
    EXPECT_FALSE(lines.RemoveSlot(-1));
}

TEST(LineContainer, TargetsOutOfRangeOrMissingAreNoScreen)
{
    CLineContainer lines;
    EXPECT_EQ("No Screen", lines.GetTarget(0));
    EXPECT_EQ("No Screen", lines.GetTarget(-1));
    lines.AddSlot();
    lines.SetLine(new CGenericLine(), 0);
    EXPECT_EQ("No Screen", lines.GetTarget(0)) << "a line without a target does not navigate";
    EXPECT_EQ("No Screen", lines.GetTarget(1));
    EXPECT_EQ(nullptr, lines.GetLine(1));
    EXPECT_EQ(-1, lines.FindPosition(nullptr));
}

TEST(LineContainer, OwnsPlacedLinesOnly)
{
    int deleted = 0;
    {
        CLineContainer lines;
        lines.AddSlot();
        CCountedLine outside(&deleted);
        EXPECT_FALSE(lines.SetLine(&outside, 1)) << "no such slot: the caller keeps the line";
        EXPECT_TRUE(lines.SetLine(new CCountedLine(&deleted), 0));
        EXPECT_TRUE(lines.SetLine(new CCountedLine(&deleted), 0));
        EXPECT_EQ(1, deleted) << "the replaced line is deleted";
        lines.AddSlot();
        lines.SetLine(new CCountedLine(&deleted), 1);
        lines.RemoveSlot(1);
        EXPECT_EQ(2, deleted);
    }
    EXPECT_EQ(4, deleted) << "the container's last line and the caller's own";
}

TEST(SelectLine, ValueFollowsTheEditCursorWrapsAndIsRangeChecked)
{
    CSelectLine line;
    EXPECT_EQ(6, line.GetIdleHint());
    EXPECT_EQ(1u, line.GetKind());
    LineTest::Steps(line, {
                              {"", "0x85"},
                              {"EU", "0x84", 1},  // UP raises the index
                              {"U", "0x85", 1},   // UP on the last index wraps to 0
                              {"D", "0x84", 1},   // DOWN on index 0 wraps to the last
                              {"X", "0x85", 0},   // EXIT drops the pending choice
                              {"EDE", "0x84", 0},
                              {"L", "0x84", 0},
                          });
    EXPECT_EQ(1, line.GetSelectedIndex());

    CSelectLine readOnly;
    readOnly.SetReadOnly(true);
    LineTest::Steps(readOnly, {{"E", "0x85", 0}});
    EXPECT_FALSE(readOnly.SetIndex(2));
    EXPECT_FALSE(readOnly.SetIndex(-1));
    EXPECT_EQ("0x85", readOnly.GetValue());
    EXPECT_TRUE(readOnly.SetIndex(1));
    EXPECT_TRUE(readOnly.SetValue("anything"));
    EXPECT_EQ("0x84", readOnly.GetValue());
}

TEST(DummyLine, IsAnInertSpacer)
{
    CGenericDummyLine line;
    EXPECT_TRUE(line.GetFlag1());
    EXPECT_EQ(0u, line.GetKind());
    EXPECT_TRUE(line.HandleKey(Key(KEY_ENTER)));
    EXPECT_EQ("", line.GetValue());
    line.Draw(1);  // no display: must not touch one
}

class LinePanelTest : public PanelTest::CPanelTest {};

TEST_F(LinePanelTest, SelectLineDrawsItsGlyphHighlightedWhileEditing)
{
    CDisplay& display = Rig().Display();
    display.Clear();
    CSelectLine line;
    line.SetLabel("Mark:");
    line.SetSuffix(" end");
    line.SetDisplay(&display);
    line.Draw(1);
    line.HandleKey(Key(KEY_ENTER));
    line.HandleKey(Key(KEY_UP));
    line.Draw(2);
    display.RedrawWindow();
    EXPECT_PANEL("select_line_idle_and_editing");
}

TEST_F(LinePanelTest, BindingReadsAndWritesTheController)
{
    CTavClient* pClient = Client();

    PanelTest::CTextLine line;
    line.SetClient(pClient);
    EXPECT_EQ(0u, line.WriteObject("X")) << "no name";
    line.SetObjectName("unitAlias");
    // Deliberate: a name without an instance sends nothing but answers its length.
    EXPECT_EQ(9u, line.WriteObject("Nowhere"));
    EXPECT_EQ("", line.ReadObject());
    EXPECT_EQ("Uplink IRD 3", pClient->GetData("unitAlias", ".0"));

    line.SetObjectInstance(".0");
    EXPECT_NE(0u, line.WriteObject("Rack 7"));
    EXPECT_EQ("Rack 7", line.ReadObject());
    line.RefreshValue();
    EXPECT_EQ("Rack 7", line.GetValue());

    PanelTest::CTextLine any;
    any.SetClient(pClient);
    any.BindObject("tsinputsrcLabel", ".%");
    any.RefreshValue();
    EXPECT_EQ("ASI", any.GetValue()) << "any instance reads the first one listed";

    PanelTest::CTextLine unbound("kept");
    unbound.SetClient(pClient);
    unbound.RefreshValue();
    EXPECT_EQ("kept", unbound.GetValue());
}
