#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Display/DisplayWindow.h"
#include "Display/TextAdjustment.h"
#include "WindowOnlyDisplay.h"

namespace {

std::string Row(const CDisplayWindow& window, int row)
{
    return std::string(window.GetLine(row), static_cast<size_t>(window.GetColumns()));
}

TEST(DisplayWindow, PositionChecksRowAndColumnIndependently)
{
    CDisplayWindow window(0, 30, 5);
    window.SetPosition(2, 4);
    window.SetPosition(7, 3);  // bad row, good column
    EXPECT_EQ(2, window.GetCursorRow());
    EXPECT_EQ(3, window.GetCursorColumn());
    window.SetPosition(1, 30);  // good row, bad column
    EXPECT_EQ(1, window.GetCursorRow());
    EXPECT_EQ(3, window.GetCursorColumn());
    window.SetPosition(-1, -1);
    EXPECT_EQ(1, window.GetCursorRow());
    EXPECT_EQ(3, window.GetCursorColumn());
}

TEST(DisplayWindow, WriteLineCopiesExactlyOneRowAndLeavesZerosAfterAShortText)
{
    CDisplayWindow window(0, 30, 5);
    window.Clear();
    window.SetPosition(1, 12);
    window.WriteLine("abc");
    // The rest of row 1 is zero bytes, so the window's text now ends after "abc".
    EXPECT_EQ(33, window.Length());
    EXPECT_EQ('\0', window.GetLine(1)[3]);
    EXPECT_EQ('\0', window.GetLine(1)[29]);
    EXPECT_EQ(' ', window.GetLine(2)[0]);

    window.SetPosition(2, 0);
    window.WriteLine(std::string(40, 'x').c_str());
    EXPECT_EQ(std::string(30, 'x'), Row(window, 2));
    EXPECT_EQ(' ', window.GetLine(3)[0]);
}

TEST(DisplayWindow, WriteRunsOverRowsAndStopsAtTheEndOfTheBuffer)
{
    CDisplayWindow window(0, 30, 5);
    window.Clear();
    window.SetPosition(1, 28);
    window.Write("abcd");
    EXPECT_EQ("ab", Row(window, 1).substr(28));
    EXPECT_EQ("cd", Row(window, 2).substr(0, 2));
    EXPECT_EQ(28, window.GetCursorColumn());  // the cursor does not move

    window.SetPosition(4, 25);
    window.Write("0123456789");
    EXPECT_EQ("01234", Row(window, 4).substr(25));
    EXPECT_EQ(150, window.Length());

    // On the last cell nothing at all is written.
    window.SetPosition(4, 29);
    window.Write("Z");
    EXPECT_EQ('4', window.GetLine(4)[29]);
}

TEST(DisplayWindow, PutCharKeepsTheCursorAndBadRowsReadAsRowZero)
{
    CDisplayWindow window(0, 30, 5);
    window.Clear();
    window.SetPosition(3, 5);
    window.PutChar('>');
    window.PutChar('*');
    EXPECT_EQ('*', window.GetLine(3)[5]);
    EXPECT_EQ(' ', window.GetLine(3)[6]);
    EXPECT_EQ(window.GetLine(0), window.GetLine(5));
    EXPECT_EQ(window.GetLine(0), window.GetLine(-1));
}

// Each alignment inserts spaces before the text and pads it to the panel's 30 characters,
// whatever the width it aligns within; a text longer than that is never cut.
TEST(TextAdjustment, AlignmentsInsertSpacesAndPadToThePanel)
{
    typedef Qb::int32 (CTextAdjustment::*Align)(std::string&, Qb::int32);
    const struct {
        int width;
        Align align;
        std::string text;
        int offset;
        int returned;
        std::string aligned;
    } cases[] = {
        {30, &CTextAdjustment::Centre, "abc", 0, 13, std::string(13, ' ') + "abc" + std::string(14, ' ')},
        {30, &CTextAdjustment::Centre, std::string(40, 'y'), 2, 0, "  " + std::string(40, 'y')},
        // The title's correction moves the text but not the gap returned.
        {30, &CTextAdjustment::Centre, "abc", -3, 13, std::string(10, ' ') + "abc" + std::string(17, ' ')},
        {30, &CTextAdjustment::AlignRight, "abc", 0, 27, std::string(27, ' ') + "abc"},
        {30, &CTextAdjustment::AlignRight, "abc", -30, 27, "abc" + std::string(27, ' ')},  // nothing inserted
        {30, &CTextAdjustment::AlignLeft, "abc", 2, 0, "  abc" + std::string(25, ' ')},
        {10, &CTextAdjustment::Centre, "ab", 0, 4, std::string(4, ' ') + "ab" + std::string(24, ' ')},
    };
    for (const auto& c : cases) {
        CTextAdjustment adjust(c.width);
        std::string text = c.text;
        const int returned = (adjust.*c.align)(text, c.offset);
        EXPECT_EQ(c.aligned, text) << c.text << " by " << c.offset;
        EXPECT_EQ(c.returned, returned) << c.text << " by " << c.offset;
    }
}

TEST(TextAdjustment, SplitKeepsInnerEmptyPiecesLikeGetline)
{
    CTextAdjustment adjust(30);
    EXPECT_EQ((std::vector<std::string>{"a", "", "b"}), adjust.Split("a,,b,", ','));
    EXPECT_EQ((std::vector<std::string>{"", "a"}), adjust.Split(",a", ','));
    EXPECT_TRUE(adjust.Split("", ',').empty());
}

TEST(TextAdjustment, WrapKeepsLinesOneShortOfTheMaximum)
{
    CTextAdjustment adjust(30);
    std::vector<std::string> lines;
    EXPECT_EQ(2, adjust.Wrap("abcd efgh ijkl", lines, 10, ' '));
    EXPECT_EQ((std::vector<std::string>{"abcd efgh", "ijkl"}), lines);

    lines.clear();
    // "abcd efghi" would be exactly 10 characters: that already wraps.
    EXPECT_EQ(2, adjust.Wrap("abcd efghi", lines, 10, ' '));
    EXPECT_EQ((std::vector<std::string>{"abcd", "efghi"}), lines);

    lines = {"kept"};
    EXPECT_EQ(3, adjust.Wrap("a averyverylongword b", lines, 10, ' '));
    EXPECT_EQ((std::vector<std::string>{"kept", "a", "averyverylongword", "b"}), lines);

    lines.clear();
    EXPECT_EQ(1, adjust.Wrap("x/y/z", lines, 10, '/'));
    EXPECT_EQ("x/y/z", lines[0]);
    EXPECT_EQ(0, adjust.Wrap("", lines, 10, ' '));
}

TEST(Display, CentredTitleMovesLeftOnlyThroughTheTextOverload)
{
    CWindowOnlyDisplay display;
    std::string title = "Setup";
    display.WriteAligned(title, 0, ALIGN_CENTRE, 0);
    EXPECT_EQ(std::string(9, ' ') + "Setup", display.Row(0).substr(0, 14));
    EXPECT_EQ(30u, title.size());  // aligned in place

    display.WriteAligned("Setup", 0, ALIGN_CENTRE, 0);
    EXPECT_EQ(std::string(12, ' ') + "Setup", display.Row(0).substr(0, 17));

    // Away from the title row both overloads agree, centred or right-aligned.
    for (int alignment : {ALIGN_CENTRE, ALIGN_RIGHT}) {
        std::string text = "Setup";
        display.WriteAligned(text, 2, alignment, 0);
        display.WriteAligned("Setup", 3, alignment, 0);
        EXPECT_EQ(display.Row(2), display.Row(3)) << alignment;
    }
    EXPECT_EQ(std::string(25, ' ') + "Setup", display.Row(3));
}

TEST(Display, WriteWrappedFillsConsecutiveRowsFromTheFirstRow)
{
    CWindowOnlyDisplay display;
    const std::string text = "The quick brown fox jumps over the lazy dog twice";
    EXPECT_EQ(2, display.WriteWrapped(text, 2, 0, 0, ' '));
    // A line reaching the full 30 characters wraps already.
    EXPECT_EQ("The quick brown fox jumps     ", display.Row(2));
    EXPECT_EQ("over the lazy dog twice       ", display.Row(3));
    EXPECT_EQ(std::string(30, ' '), display.Row(1));

    // An offset narrows the lines and indents them.
    CWindowOnlyDisplay indented;
    EXPECT_EQ(3, indented.WriteWrapped(text, 1, 0, 10, ' '));
    EXPECT_EQ(std::string(10, ' ') + "The quick brown fox ", indented.Row(1));
    EXPECT_EQ(std::string(10, ' ') + "dog twice", indented.Row(3).substr(0, 19));

    // Below the panel nothing is written, but the lines are still counted.
    CWindowOnlyDisplay below;
    EXPECT_EQ(2, below.WriteWrapped(text, 5, 0, 0, ' '));
    EXPECT_EQ(std::string(150, ' '), below.GetCurrentWindow()->GetBuffer());
}

}  // namespace
