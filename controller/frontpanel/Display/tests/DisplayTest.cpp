#include <gtest/gtest.h>

#include <string>

#include "WindowOnlyDisplay.h"

namespace {

std::string Row(const CDisplay& display, int row)
{
    return std::string(display.GetCurrentWindow()->GetLine(row), 30);
}

TEST(Display, CentredTitleMovesLeftOnlyThroughTheTextOverload)
{
    CWindowOnlyDisplay display;
    std::string title = "Setup";
    display.WriteAligned(title, 0, ALIGN_CENTRE, 0);
    EXPECT_EQ(std::string(9, ' ') + "Setup", Row(display, 0).substr(0, 14));
    EXPECT_EQ(30u, title.size());  // aligned in place

    display.WriteAligned("Setup", 0, ALIGN_CENTRE, 0);
    EXPECT_EQ(std::string(12, ' ') + "Setup", Row(display, 0).substr(0, 17));

    // Away from the title row both overloads agree.
    std::string text = "Setup";
    display.WriteAligned(text, 2, ALIGN_CENTRE, 0);
    display.WriteAligned("Setup", 3, ALIGN_CENTRE, 0);
    EXPECT_EQ(Row(display, 2), Row(display, 3));
    display.WriteAligned("Setup", 4, ALIGN_RIGHT, 0);
    EXPECT_EQ(std::string(25, ' ') + "Setup", Row(display, 4));
}

TEST(Display, WriteWrappedFillsConsecutiveRowsFromTheFirstRow)
{
    CWindowOnlyDisplay display;
    const std::string text = "The quick brown fox jumps over the lazy dog twice";
    EXPECT_EQ(2, display.WriteWrapped(text, 2, 0, 0, ' '));
    // A line reaching the full 30 characters wraps already.
    EXPECT_EQ("The quick brown fox jumps     ", Row(display, 2));
    EXPECT_EQ("over the lazy dog twice       ", Row(display, 3));
    EXPECT_EQ(std::string(30, ' '), Row(display, 1));

    // An offset narrows the lines and indents them.
    CWindowOnlyDisplay indented;
    EXPECT_EQ(3, indented.WriteWrapped(text, 1, 0, 10, ' '));
    EXPECT_EQ(std::string(10, ' ') + "The quick brown fox ", Row(indented, 1));
    EXPECT_EQ(std::string(10, ' ') + "dog twice", Row(indented, 3).substr(0, 19));

    // Below the panel nothing is written, but the lines are still counted.
    CWindowOnlyDisplay below;
    EXPECT_EQ(2, below.WriteWrapped(text, 5, 0, 0, ' '));
    EXPECT_EQ(std::string(150, ' '), below.GetCurrentWindow()->GetBuffer());
}

}  // namespace
