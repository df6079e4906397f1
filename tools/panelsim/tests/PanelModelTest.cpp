#include <gtest/gtest.h>

#include <string>

#include "panelsim/PanelModel.h"

namespace {

using Panelsim::CPanelModel;

const std::string kClear = "\t0~";

std::string At(int row, int column)
{
    std::string bytes = "\tY";
    bytes += row == 9 ? std::string("}\x29") : std::string(1, static_cast<char>(row));
    bytes += "\tX";
    bytes += column == 9 ? std::string("}\x29") : std::string(1, static_cast<char>(column));
    return bytes;
}

// A session that uses every command: title, indicators, escapes, highlight, blanks.
std::string Session()
{
    return kClear + At(0, 3) + "\tT  Main Menu~" + At(0, 27) + "\tT \x7F\x81~" + At(0, 0) + "\tT\x82~" +
           At(1, 0) + "\tT>Input}^1~" + At(2, 9) + "\tR\x01\tTa}\x29}]b~\tR\x02" + At(3, 0) +
           "\tTxxxxxxxxxx~" + At(3, 2) + "\tT    \n~" + At(4, 29) + "\tT\x85~";
}

TEST(PanelModel, DecodesEveryCommandIntoTheScreen)
{
    CPanelModel panel;
    panel.Feed(Session());
    EXPECT_EQ(0u, panel.Errors()) << panel.LastError();
    EXPECT_EQ(1u, panel.Clears());
    EXPECT_EQ("#    Main Menu" + std::string(14, ' ') + "$@", panel.RowText(0));
    EXPECT_EQ(">Input~1", panel.RowText(1).substr(0, 8));
    EXPECT_EQ('\t', panel.Code(2, 10));  // unescaped, shown as '?'
    EXPECT_EQ("a?}b", panel.RowText(2).substr(9, 4));
    EXPECT_EQ("xx    xxxx", panel.RowText(3).substr(0, 10));  // the line feed takes no cell
    EXPECT_EQ(0x85, panel.Code(4, 29));
    for (int column = 0; column < 30; ++column) {
        EXPECT_EQ(column >= 9 && column <= 12, panel.IsHighlighted(2, column)) << column;
    }
    EXPECT_FALSE(panel.GetHighlightMode());

    const std::string dump =
        "|#    Main Menu              $@|\n"
        "|>Input~1                      |\n"
        "|         a?}b                 |\n"
        "          ^^^^\n"
        "|xx    xxxx                    |\n"
        "|                             +|\n";
    EXPECT_EQ(dump, panel.Dump());

    panel.Feed(kClear);
    EXPECT_EQ(std::string(30, ' '), panel.RowText(2));
    EXPECT_FALSE(panel.IsHighlighted(2, 9));
}

TEST(PanelModel, FramesMaySplitAnywhere)
{
    const std::string stream = Session();
    CPanelModel whole;
    whole.Feed(stream);
    for (size_t cut = 1; cut < stream.size(); ++cut) {
        CPanelModel split;
        split.Feed(stream.substr(0, cut));
        split.Feed(stream.substr(cut));
        ASSERT_EQ(whole.Dump(), split.Dump()) << "cut at " << cut;
        ASSERT_EQ(whole.Frames(), split.Frames());
        ASSERT_EQ(0u, split.Errors());
    }
    CPanelModel bytewise;
    for (char byte : stream) {
        bytewise.Feed(&byte, 1);
    }
    EXPECT_EQ(whole.Dump(), bytewise.Dump());
}

// Each kind of bad input is counted once, reported, and the next good frame still works.
TEST(PanelModel, ProtocolErrorsAreCountedAndDecodingRecovers)
{
    struct Case_t {
        const char* what;
        std::string bytes;
        const char* error;
    } cases[] = {
        {"unknown command", "\tQabc~", "unknown command byte 0x51"},
        {"text past the row end", At(2, 27) + "\tTabcde~", "text past the end of row 2"},
        {"cut short by a new frame", "\tTabc", "cut short"},
        {"row outside the panel", "\tY\x05", "row 5 is outside the panel"},
        {"column outside the panel", "\tX\x1e", "column 30 is outside the panel"},
        {"bad highlight mode", "\tR\x03", "highlight mode 0x03"},
        {"clear without its end", "\t0x", "clear command"},
        {"bytes outside a frame", "junk", "outside a frame"},
    };
    for (const Case_t& c : cases) {
        CPanelModel panel;
        panel.Feed(c.bytes + At(1, 0) + "\tTok~");
        EXPECT_EQ(1u, panel.Errors()) << c.what;
        EXPECT_NE(std::string::npos, panel.LastError().find(c.error)) << c.what << ": " << panel.LastError();
        EXPECT_EQ("ok", panel.RowText(1).substr(0, 2)) << c.what;
        EXPECT_EQ(1u, panel.TakeNewErrors().size());
        EXPECT_TRUE(panel.TakeNewErrors().empty());
    }

    CPanelModel panel;
    panel.Feed(At(2, 27) + "\tTabcde~");
    EXPECT_EQ("abc", panel.RowText(2).substr(27));  // what fits is shown
    panel.Feed("\tTunfinished");
    panel.Disconnected();
    EXPECT_EQ(2u, panel.Errors());
    EXPECT_NE(std::string::npos, panel.LastError().find("end of the connection"));
    EXPECT_EQ(std::string::npos, panel.Dump().find("unfinished"));
}

}  // namespace
