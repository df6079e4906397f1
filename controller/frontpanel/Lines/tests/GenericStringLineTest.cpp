// Text entry: character sets, the scrolling cursor, commit and abandon (what ENTER and EXIT
// write is tested on the screens over unitd).
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/FieldEditor.h"
#include "Lines/GenericStringLine.h"
#include "PanelTest.h"
#include "TestScreens.h"

using LineTest::Key;
using LineTest::Keys;
using LineTest::Steps;

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

    Steps(line, {
                    {"EUR", "bb", 1},     // the edit copy while editing
                    {"X", "ab", 0},       // EXIT drops the copy
                    {"E2RUE", "ab!", 0},  // the fill blank stepped to '!'; trailing fill is dropped
                    {"E3RX", "ab!", 0},
                    {"EUE", "bb!", 0},  // EXIT put the cursor back on the first position
                });
    line.SetValue("a much longer text");
    Steps(line, {
                    {"E", "a much", 1},              // edited as cut to the maximum length
                    {"E", "a much longer text", 0},  // confirmed unchanged, kept whole
                    {"EUE", "b much", 0},            // changed: what the user saw and typed
                });

    CGenericStringLine readOnly(4);
    readOnly.SetReadOnly(true);
    Steps(readOnly, {{"E", "", 0}});
}

TEST(GenericStringLine, CursorScrollsOverAValueWiderThanItsField)
{
    // 30 columns less a 20-character label less 2: W = 8, so 9 characters are in view.
    CProbeLine line(12);
    line.SetLabel("Twenty character lbl");
    line.SetValue("0123456789AB");
    Keys(line, "E");
    const CFieldEditor& editor = line.Editor();

    // The cursor walks to the end of the field first, then the text scrolls; RIGHT past the
    // end wraps to the start, LEFT at the start brings the end into view, and at the field's
    // first column LEFT scrolls back.
    const struct {
        const char* keys;
        int index, offset;
    } steps[] = {{"8R", 8, 0}, {"R", 9, 1},  {"2R", 11, 3}, {"R", 0, 0},
                 {"L", 11, 3}, {"8L", 3, 3}, {"L", 2, 2}};
    for (const auto& step : steps) {
        Keys(line, step.keys);
        EXPECT_EQ(step.index, editor.Index()) << step.keys;
        EXPECT_EQ(step.offset, editor.Offset()) << step.keys;
        if (step.index == 9) {
            EXPECT_EQ("123456789", editor.Visible());
        }
    }

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
