// Text entry: character sets, the scrolling cursor, commit and abandon, and the one write
// that ENTER makes through a real menu screen.
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/FieldEditor.h"
#include "Lines/GenericStringLine.h"
#include "PanelTest.h"
#include "TestScreens.h"

using LineTest::Key;
using LineTest::Keys;

namespace {

// Shows the line's editor, which is what the cursor tests look at.
class CProbeLine : public CGenericStringLine {
public:
    explicit CProbeLine(int maxLength) : CGenericStringLine(maxLength, 4) {}
    using CEntryLine::Editor;
};

}  // namespace

TEST(CharSet, EachSetStepsFromMembersAndFromOutsiders)
{
    struct Row {
        int set;
        char from, up, down;
    };
    const Row rows[] = {
        // Letters and digits in byte order, wrapping; other sets above 6 behave the same.
        {0, 'z', '0', 'y'}, {0, '9', 'A', '8'}, {0, 'A', 'B', '9'}, {0, '0', '1', 'z'},
        {0, ' ', '0', 'z'}, {1, 'a', 'b', 'Z'}, {99, 'z', '0', 'y'},
        // "-" and "_" (and "." in set 3) take their byte places.
        {2, 'Z', '_', 'Y'}, {2, '_', 'a', 'Z'}, {2, 'z', '-', 'y'}, {2, ' ', '-', 'z'},
        {3, '-', '.', 'z'}, {3, '.', '0', '-'}, {3, '9', 'A', '8'},
        {4, '~', ' ', '}'}, {4, ' ', '!', '~'}, {4, '\x7f', ' ', '~'},
        // Sets 5 and 6: fixed steps across the seams, the next code everywhere else,
        // from outside the set too.
        {5, 'z', '0', 'y'}, {5, '9', '_', '8'}, {5, '_', 'a', '9'}, {5, 'a', 'b', '_'},
        {5, '0', '1', 'z'}, {5, ' ', '!', '\x1f'}, {5, 'A', 'B', '@'},
        {6, 'z', 'A', 'y'}, {6, 'Z', '_', 'Y'}, {6, '_', 'a', 'Z'}, {6, 'a', 'b', '_'},
        {6, 'A', 'B', 'z'}, {6, '9', ':', '8'}, {6, ' ', '!', '\x1f'},
    };
    for (const Row& row : rows) {
        const CCharSet& set = CCharSet::ForTextSet(row.set);
        EXPECT_EQ(row.up, set.Step(row.from, true)) << "set " << row.set << " UP on '" << row.from << "'";
        EXPECT_EQ(row.down, set.Step(row.from, false)) << "set " << row.set << " DOWN on '" << row.from << "'";
    }
}

TEST(GenericStringLine, EditsACopyThatEnterCommitsAndExitDrops)
{
    CGenericStringLine line(6, 4);
    line.SetValue("ab");
    EXPECT_EQ(6, line.GetIdleHint());
    EXPECT_EQ(7, line.GetEditHint());

    EXPECT_TRUE(Keys(line, "EUR"));
    EXPECT_EQ("bb", line.GetValue()) << "the edit copy while editing";
    EXPECT_FALSE(Keys(line, "X"));
    EXPECT_EQ("ab", line.GetValue()) << "EXIT drops the copy";

    EXPECT_FALSE(Keys(line, "ERRUE"));
    EXPECT_EQ("ab!", line.GetValue()) << "the fill blank stepped to '!'; trailing fill is dropped";
    EXPECT_FALSE(Keys(line, "ERRRX"));
    EXPECT_FALSE(Keys(line, "EUE"));
    EXPECT_EQ("bb!", line.GetValue()) << "EXIT put the cursor back on the first position";

    line.SetValue("a much longer text");
    EXPECT_TRUE(Keys(line, "E"));
    EXPECT_EQ("a much", line.GetValue()) << "edited as cut to the maximum length";
    EXPECT_FALSE(Keys(line, "E"));
    EXPECT_EQ("a much longer text", line.GetValue()) << "confirmed unchanged, kept whole";
    EXPECT_FALSE(Keys(line, "EUE"));
    EXPECT_EQ("b much", line.GetValue()) << "changed: what the user saw and typed";

    CGenericStringLine readOnly(4);
    readOnly.SetReadOnly(true);
    EXPECT_FALSE(Keys(readOnly, "E"));
    EXPECT_FALSE(readOnly.IsEditing());
}

TEST(GenericStringLine, CursorScrollsOverAValueWiderThanItsField)
{
    // 30 columns less a 20-character label less 2: W = 8, so 9 characters are in view.
    CProbeLine line(12);
    line.SetLabel("Twenty character lbl");
    line.SetValue("0123456789AB");
    Keys(line, "E");
    const CFieldEditor& editor = line.Editor();

    Keys(line, "RRRRRRRR");
    EXPECT_EQ(8, editor.Index());
    EXPECT_EQ(0, editor.Offset()) << "the cursor walks to the end of the field first";
    Keys(line, "R");
    EXPECT_EQ(9, editor.Index());
    EXPECT_EQ(1, editor.Offset()) << "then the text scrolls";
    EXPECT_EQ("123456789", editor.Visible());
    Keys(line, "RR");
    EXPECT_EQ(11, editor.Index());
    Keys(line, "R");
    EXPECT_EQ(0, editor.Index()) << "RIGHT past the end wraps to the start";
    EXPECT_EQ(0, editor.Offset());

    Keys(line, "L");
    EXPECT_EQ(11, editor.Index()) << "LEFT at the start brings the end into view";
    EXPECT_EQ(3, editor.Offset());
    Keys(line, "LLLLLLLL");
    EXPECT_EQ(3, editor.Index());
    Keys(line, "L");
    EXPECT_EQ(2, editor.Index());
    EXPECT_EQ(2, editor.Offset()) << "at the field's first column LEFT scrolls back";

    // A value that fits its field wraps at its own length.
    CProbeLine fits(3);
    fits.SetValue("abc");
    Keys(fits, "EL");
    EXPECT_EQ(2, fits.Editor().Index());
    Keys(fits, "R");
    EXPECT_EQ(0, fits.Editor().Index());
}

class StringLinePanelTest : public PanelTest::CPanelTest {};

TEST_F(StringLinePanelTest, EditingShowsTheFieldWithTheCursorHighlighted)
{
    CDisplay& display = Rig().Display();
    display.Clear();
    CGenericStringLine idle(20);
    idle.SetLabel("Name: ");
    idle.SetValue("Uplink IRD 3");
    idle.SetDisplay(&display);
    idle.Draw(1);

    CGenericStringLine scrolled(40, 4);
    scrolled.SetLabel("URI: ");
    scrolled.SetValue("http://pois.example/esam/acquisition-point");
    scrolled.SetDisplay(&display);
    Keys(scrolled, "ELU");  // the end of the value in view, its last character stepped
    scrolled.Draw(3);
    display.RedrawWindow();
    EXPECT_PANEL("lines_string_idle_and_scrolled");
}

TEST_F(StringLinePanelTest, EnterWritesTheValueOnceAndExitWritesNothing)
{
    CTavClient* pClient = Client();
    LineTest::CWriteRecorder writes(pClient, "unitAlias", ".0");
    CGenericStringLine* pLine = new CGenericStringLine(12, 4);
    pLine->BindObject("unitAlias", ".0");
    Add(new PanelTest::CTableScreen("Unit", "No Screen", {{"Alias: ", "", true, pLine}}), "Unit");
    Show("Unit");
    EXPECT_EQ("Uplink IRD 3", pLine->GetValue()) << "the screen shows the controller's value";

    for (int key : {KEY_ENTER, KEY_UP, KEY_EXIT})
        Press(key);
    EXPECT_EQ("Unit", Current()) << "EXIT ends the edit, not the screen";
    EXPECT_TRUE(writes.WritesBefore("Rack 7").empty()) << "EXIT writes nothing";

    for (int key : {KEY_ENTER, KEY_UP, KEY_ENTER})
        Press(key);
    EXPECT_EQ((std::vector<std::string>{"Vplink IRD 3"}), writes.WritesBefore("Rack 8"))
        << "ENTER writes the edited value, once";

    const std::string wide = "Uplink IRD 3 rack 8";  // wider than the line's 12
    EXPECT_TRUE(writes.WritesBefore(wide).empty());
    pLine->RefreshValue();
    for (int key : {KEY_ENTER, KEY_ENTER})
        Press(key);
    EXPECT_EQ((std::vector<std::string>{wide}), writes.WritesBefore("Rack 9"))
        << "confirmed unchanged, the value goes back whole";
}
