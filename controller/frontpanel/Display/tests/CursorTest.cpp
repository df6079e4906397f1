#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Display/Cursor.h"
#include "WindowOnlyDisplay.h"

namespace {

struct Pos_t {
    int index;
    int row;
    int top;
    int redraw;  // the move asks for the list to be drawn again
};

// Items on rows 1 to 4: the list scrolls at the edges and wraps at the ends; a list shorter
// than the area wraps below its last row, and an empty one stays put.
TEST(Cursor, MovesScrollAtTheEdgesAndWrapAtTheEnds)
{
    const struct {
        bool down;
        int items;
        int visible;
        std::vector<Pos_t> steps;
    } walks[] = {
        {true, 6, 4, {{1, 2, 0, 0}, {2, 3, 0, 0}, {3, 4, 0, 0}, {4, 4, 1, 1}, {5, 4, 2, 1}, {0, 1, 0, 1}}},
        {false, 6, 4, {{5, 4, 2, 1}, {4, 3, 2, 0}, {3, 2, 2, 0}, {2, 1, 2, 0}, {1, 1, 1, 1}, {0, 1, 0, 1}}},
        {false, 2, 2, {{1, 2, 0, 0}, {0, 1, 0, 0}}},
        {true, 2, 2, {{1, 2, 0, 0}, {0, 1, 0, 0}}},
        {true, 0, 0, {{0, 1, 0, 0}}},
        {false, 0, 0, {{0, 1, 0, 0}}},
    };
    for (const auto& walk : walks) {
        CCursor cursor;
        cursor.SetRowRange(1, 4);
        cursor.SetItemCount(walk.items);
        EXPECT_EQ(walk.visible, cursor.GetVisibleCount());
        for (size_t i = 0; i < walk.steps.size(); ++i) {
            SCOPED_TRACE(testing::Message()
                         << (walk.down ? "down" : "up") << " over " << walk.items << ", step " << i);
            const bool moved = walk.down ? cursor.MoveDown() : cursor.MoveUp();
            EXPECT_EQ(walk.steps[i].index, cursor.GetIndex());
            EXPECT_EQ(walk.steps[i].row, cursor.GetRow());
            EXPECT_EQ(walk.steps[i].top, cursor.GetTop());
            EXPECT_EQ(walk.steps[i].redraw != 0, moved);
        }
    }
}

TEST(Cursor, ScrollModeMovesOnlyTheTopAndDrawsNothing)
{
    CWindowOnlyDisplay display;
    CCursor cursor;
    cursor.SetDisplay(&display);
    cursor.SetRowRange(1, 4);
    cursor.SetItemCount(7);
    cursor.SetMode(CCursor::MODE_SCROLL);
    EXPECT_FALSE(cursor.MoveUp());
    EXPECT_TRUE(cursor.MoveDown());
    EXPECT_TRUE(cursor.MoveDown());
    EXPECT_TRUE(cursor.MoveDown());
    EXPECT_FALSE(cursor.MoveDown());  // items 3 to 6 fill the area
    EXPECT_EQ(3, cursor.GetTop());
    EXPECT_EQ(0, cursor.GetIndex());
    EXPECT_TRUE(cursor.MoveUp());
    EXPECT_EQ(2, cursor.GetTop());
    cursor.Draw();
    cursor.SetMode(CCursor::MODE_NO_DRAW);
    cursor.Draw();
    EXPECT_EQ(std::string(150, ' '), display.GetCurrentWindow()->GetBuffer());
}

TEST(Cursor, ItemCountAndIndexKeepTheAreaConsistent)
{
    CCursor cursor;
    cursor.SetRowRange(1, 4);
    cursor.SetItemCount(10);
    EXPECT_EQ(10, cursor.GetItemCount());
    EXPECT_EQ(4, cursor.GetVisibleCount());

    cursor.SetIndex(2);  // within the first page
    EXPECT_EQ(3, cursor.GetRow());
    EXPECT_EQ(0, cursor.GetTop());
    cursor.SetIndex(8);  // further down: on the last row
    EXPECT_EQ(4, cursor.GetRow());
    EXPECT_EQ(5, cursor.GetTop());

    cursor.SetItemCount(12);  // still valid: the top follows index and row
    EXPECT_EQ(8, cursor.GetIndex());
    EXPECT_EQ(5, cursor.GetTop());
    cursor.SetItemCount(5);  // the index fell off the list
    EXPECT_EQ(0, cursor.GetIndex());
    EXPECT_EQ(1, cursor.GetRow());
    EXPECT_EQ(0, cursor.GetTop());

    // An index equal to the top of an area that is no longer full steps back one item.
    cursor.SetItemCount(10);
    cursor.SetIndex(9);
    cursor.MoveUp();
    cursor.MoveUp();
    cursor.MoveUp();  // index 6 on the first row, top 6
    cursor.SetItemCount(8);
    EXPECT_EQ(6, cursor.GetTop());
    cursor.SetIndex(6);
    EXPECT_EQ(5, cursor.GetIndex());
    EXPECT_EQ(5, cursor.GetTop());
    cursor.SetIndex(0);
    EXPECT_EQ(1, cursor.GetRow());
    EXPECT_EQ(0, cursor.GetTop());
    cursor.MoveDown();
    cursor.Reset();
    EXPECT_EQ(0, cursor.GetIndex());
    EXPECT_EQ(1, cursor.GetRow());
}

TEST(Cursor, DrawMovesTheGlyphAndEraseRemovesIt)
{
    CWindowOnlyDisplay display;
    CCursor cursor;
    cursor.SetDisplay(&display);
    cursor.SetRowRange(1, 4);
    cursor.SetItemCount(3);
    cursor.SetColumn(2);
    cursor.Draw();
    EXPECT_EQ('>', display.At(1, 2));
    cursor.MoveDown();
    cursor.Draw();
    EXPECT_EQ(' ', display.At(1, 2));
    EXPECT_EQ('>', display.At(2, 2));
    cursor.Erase();
    EXPECT_EQ(' ', display.At(2, 2));

    // A fixed column cursor draws elsewhere and leaves its old glyph in place.
    cursor.SetGlyph('*');
    cursor.SetFixedColumn(true, 20);
    cursor.Draw();
    cursor.MoveDown();
    cursor.Draw();
    EXPECT_EQ('*', display.At(2, 20));
    EXPECT_EQ('*', display.At(3, 20));
    EXPECT_EQ(' ', display.At(3, 2));
}

}  // namespace
