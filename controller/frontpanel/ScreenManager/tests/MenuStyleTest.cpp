// Menu styles driven through screens on the real display.
#include <gtest/gtest.h>

#include "Lines/GenericDummyLine.h"
#include "Lines/SelectLine.h"
#include "PanelTest.h"
#include "ScreenManager/MenuStyle.h"
#include "TestScreens.h"

using PanelTest::CTableScreen;
using PanelTest::CTextLine;
using PanelTest::Row_t;

using PanelTest::Key;

namespace {

// Records every key it is given.
class CRecordingLine : public CTextLine {
public:
    bool HandleKey(const KeyPress_t& key) override
    {
        keys.push_back(key.key);
        return CTextLine::HandleKey(key);
    }
    std::vector<int> keys;
};

// A two-row list line: records the flags the long-list style set for each draw.
class CListLine : public CTextLine {
public:
    explicit CListLine(const std::string& value) : CTextLine(value) { m_uKind = 2; }
    void Draw(int row) override
    {
        draws.push_back({row, m_bFlag0, m_bFlag2});
        CTextLine::Draw(row);
    }
    struct Draw_t {
        int row;
        bool flag0;
        bool flag2;
    };
    std::vector<Draw_t> draws;
};

class MenuStyleTest : public PanelTest::CPanelTest {
protected:
    int Selected(CScreen* pScreen) { return pScreen->GetMenu()->GetCursor().GetIndex(); }
    std::string Answer(CScreen* pScreen, int key) { return pScreen->HandleKey(Key(key)); }
};

}  // namespace

TEST_F(MenuStyleTest, SelectionSkipsOneUnselectableLineThenTheRedrawSettlesForward)
{
    CTableScreen* pScreen = AddTable("Skips", "Parent",
                                     {Row_t{"A", "", true, nullptr}, Row_t{"B", "", false, nullptr},
                                      Row_t{"C", "", false, nullptr}, Row_t{"D", "", true, nullptr}});
    Show("Skips");
    // The key steps over one unselectable line only (B, landing on C); the redraw that
    // follows walks forward past C.
    Press(KEY_DOWN);
    EXPECT_EQ(3, Selected(pScreen));
    Press(KEY_DOWN);
    EXPECT_EQ(0, Selected(pScreen)) << "DOWN on the last line wraps to the first";
    Press(KEY_UP);
    EXPECT_EQ(3, Selected(pScreen)) << "UP on the first line wraps to the last";
    // UP from D lands on B after its one skip; the redraw then walks forward to D again.
    Press(KEY_UP);
    EXPECT_EQ(3, Selected(pScreen));
    EXPECT_PANEL("style_skip_settles_on_last_selectable");
}

TEST_F(MenuStyleTest, ScreenOfOnlyUnselectableLinesStillDraws)
{
    CTableScreen* pScreen =
        AddTable("Static", "Parent", {Row_t{"One", "", false, nullptr}, Row_t{"Two", "", false, nullptr}});
    Show("Static");  // the settle loop must end when the selection wraps to 0
    EXPECT_EQ(0, Selected(pScreen));
    AddTable("Empty", "Parent", {});
    Show("Empty");
    Press(KEY_DOWN);
    EXPECT_EQ("No Screen", Answer(Manager().GetCurrentScreen(), KEY_ENTER));
    EXPECT_PANEL("style_empty_screen_title_only");
}

TEST_F(MenuStyleTest, EnterOpensTargetsOrEditsAndExitLeavesEditingFirst)
{
    CTextLine* pNavigating = new CTextLine();
    CTextLine* pValue = new CTextLine("ASI");
    CTextLine* pReadOnly = new CTextLine("fixed");
    pReadOnly->SetReadOnly(true);
    CTableScreen* pScreen =
        AddTable("Edit", "Parent",
                 {Row_t{"Open", "Elsewhere", true, pNavigating}, Row_t{"Input:", "", true, pValue},
                  Row_t{"Model:", "", true, pReadOnly}});
    Show("Edit");

    EXPECT_EQ("Elsewhere", Answer(pScreen, KEY_ENTER));
    EXPECT_FALSE(pNavigating->IsEditing()) << "a navigating line is not put into edit mode";

    Answer(pScreen, KEY_DOWN);
    EXPECT_EQ("No Screen", Answer(pScreen, KEY_ENTER));
    EXPECT_TRUE(pScreen->IsEditing());
    Answer(pScreen, KEY_RIGHT);
    EXPECT_PANEL("style_editing_value_highlighted");
    EXPECT_EQ("No Screen", Answer(pScreen, KEY_EXIT)) << "EXIT ends editing, it does not leave";
    EXPECT_FALSE(pScreen->IsEditing());
    EXPECT_EQ("ASI>", pValue->GetValue());
    EXPECT_PANEL("style_after_edit_idle");

    Answer(pScreen, KEY_DOWN);
    Answer(pScreen, KEY_ENTER);
    EXPECT_FALSE(pScreen->IsEditing()) << "a read-only line refuses edit mode";
    EXPECT_EQ("Parent", Answer(pScreen, KEY_EXIT));

    CTableScreen* pOrphan = AddTable("Orphan", "No Screen", {});
    EXPECT_EQ("No Screen", Answer(pOrphan, KEY_EXIT));
}

TEST_F(MenuStyleTest, SetEditingSendsEnterOnlyOnChange)
{
    CRecordingLine* pLine = new CRecordingLine();
    CTableScreen* pScreen = AddTable("Toggle", "Parent", {Row_t{"Value:", "", true, pLine}});
    Show("Toggle");
    pScreen->SetEditing(true);
    pScreen->SetEditing(true);
    EXPECT_EQ((std::vector<int>{KEY_ENTER}), pLine->keys);
    EXPECT_TRUE(pScreen->IsEditing());
    pScreen->SetEditing(false);
    EXPECT_EQ(2u, pLine->keys.size());
    EXPECT_FALSE(pScreen->IsEditing());
}

TEST_F(MenuStyleTest, YesNoLineTakesEveryKeyAndNeverNavigatesOnEnter)
{
    CRecordingLine* pLine = new CRecordingLine();
    CTableScreen* pScreen =
        AddTable("Sure?", "Parent", {Row_t{"Save changes?", "Somewhere", true, pLine}}, "Menu Style Yes No");
    Show("Sure?");
    EXPECT_EQ("No Screen", Answer(pScreen, KEY_LEFT));
    EXPECT_EQ("No Screen", Answer(pScreen, KEY_RIGHT));
    EXPECT_EQ("No Screen", Answer(pScreen, KEY_ENTER)) << "ENTER never opens the line's target";
    EXPECT_EQ("Parent", Answer(pScreen, KEY_EXIT));
    EXPECT_EQ((std::vector<int>{KEY_LEFT, KEY_RIGHT, KEY_ENTER, KEY_EXIT}), pLine->keys);
    EXPECT_FALSE(pScreen->IsEditing());
    EXPECT_PANEL("style_yes_no_without_marker");
}

TEST_F(MenuStyleTest, LongListDrawsListLinesByTheirPlaceInTheArea)
{
    CListLine* pFirst = new CListLine("first");
    CListLine* pSecond = new CListLine("second");
    CTableScreen* pScreen =
        AddTable("Alarms", "Parent",
                 {Row_t{"", "", true, pFirst}, Row_t{"", "", false, new CGenericDummyLine()},
                  Row_t{"", "", true, new CTextLine("plain")}, Row_t{"", "", true, pSecond},
                  Row_t{"", "", true, new CGenericDummyLine()}},
                 "Menu Style Long List");
    Show("Alarms");
    ASSERT_FALSE(pSecond->draws.empty());
    EXPECT_EQ(4, pSecond->draws.back().row);
    EXPECT_FALSE(pSecond->draws.back().flag0) << "on the last row a list line has no room for its second row";
    EXPECT_TRUE(pFirst->draws.back().flag0);
    EXPECT_FALSE(pFirst->draws.back().flag2);

    // Scroll until the dummy of the first line is at the top: its owner is drawn there.
    pScreen->GetMenu()->GetCursor().SetIndex(4);
    pFirst->draws.clear();
    pScreen->Refresh(0);
    ASSERT_EQ(1u, pFirst->draws.size());
    EXPECT_EQ(1, pFirst->draws[0].row);
    EXPECT_TRUE(pFirst->draws[0].flag0);
    EXPECT_TRUE(pFirst->draws[0].flag2);
}
