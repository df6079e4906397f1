#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <initializer_list>
#include <string>
#include <thread>

#include "Display/DisplayHw.h"
#include "PanelEnd.h"
#include "Qb/Socket.h"
#include "panelsim/PanelModel.h"

namespace {

std::string Bytes(std::initializer_list<int> values)
{
    std::string bytes;
    for (int value : values) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

// The position command (row, then column), followed by the start of a text command.
std::string TextAt(int row, int column)
{
    return Bytes({0x09, 0x59, row, 0x09, 0x58, column, 0x09, 0x54});
}

// Text commands in what was sent: a whole window is five of them.
size_t Texts(const std::string& sent)
{
    return static_cast<size_t>(std::count(sent.begin(), sent.end(), 'T'));
}

class DisplayHwTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_link.Accept());
        m_pDisplay.reset(new CDisplayHw(m_socket));
        EXPECT_EQ(Bytes({0x09, 0x30, 0x7E}), m_link.Take());  // a new display clears the panel
    }

    CPanelEnd m_link;
    Qb::CStreamSocket m_socket{Qb::CLocalSocketAddress(m_link.Path())};
    std::unique_ptr<CDisplayHw> m_pDisplay;
};

TEST_F(DisplayHwTest, DrawLineSendsTheTitleRowFromColumnThreeAndOtherRowsWhole)
{
    const std::string text = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    m_pDisplay->DrawLine(text, 0);
    EXPECT_EQ(TextAt(0, 3) + text.substr(0, 24) + "~", m_link.Take());
    m_pDisplay->DrawLine(text, 3);
    EXPECT_EQ(TextAt(3, 0) + text.substr(0, 30) + "~", m_link.Take());
    m_pDisplay->DrawLine("", 4);
    EXPECT_EQ(Bytes({0x09, 0x59, 0x04, 0x09, 0x58, 0x00, 0x09, 0x54, 0x7E}), m_link.Take());
}

TEST_F(DisplayHwTest, PositionNineAndFramingBytesInTextsAreEscaped)
{
    m_pDisplay->DrawHighlighted("a\t}~b", 9, 1);
    EXPECT_EQ(Bytes({0x09, 0x59, 0x01, 0x09, 0x58, 0x7D, 0x29,                         // position (1, 9)
                     0x09, 0x52, 0x01,                                                 // highlight on
                     0x09, 0x54, 'a',  0x7D, 0x29, 0x7D, 0x5D, 0x7D, 0x5E, 'b', 0x7E,  // text
                     0x09, 0x52, 0x02}),                                               // highlight off
              m_link.Take());
    m_pDisplay->DrawBlanks(3, 2, 9);
    EXPECT_EQ(Bytes({0x09, 0x59, 0x7D, 0x29, 0x09, 0x58, 0x02, 0x09, 0x54, ' ', ' ', ' ', 0x0A, 0x7E}),
              m_link.Take());
    // Glyph codes pass unescaped.
    EXPECT_EQ(Bytes({0x7F, 0x80, 0x7D, 0x5E}), CDisplayHw::EscapeText(Bytes({0x7F, 0x80, 0x7E})));
}

TEST_F(DisplayHwTest, IndicatorsAndTheLeftIndicatorsKeptWithThem)
{
    m_pDisplay->SetRightIndicators(2);
    EXPECT_EQ(TextAt(0, 27) + Bytes({' ', 0x7F, ' ', 0x7E}), m_link.Take());
    m_pDisplay->SetRightIndicators(5);
    EXPECT_EQ(TextAt(0, 27) + Bytes({0x80, ' ', 0x81, 0x7E}), m_link.Take());

    m_pDisplay->SetLeftIndicators(24);  // 16 wins over 8
    EXPECT_EQ(TextAt(0, 0) + Bytes({0x8A, 0x7E}), m_link.Take());
    m_pDisplay->SetLeftIndicators(0);
    EXPECT_EQ(TextAt(0, 0) + Bytes({' ', 0x7E}), m_link.Take());

    m_pDisplay->SetLeftIndicator8(true);
    m_pDisplay->SetLeftIndicator16(true);
    m_pDisplay->SetRightIndicators(0);
    EXPECT_EQ(
        TextAt(0, 0) + Bytes({0x82, 0x7E}) + TextAt(0, 0) + Bytes({0x8A, 0x7E}) + TextAt(0, 27) + "   ~",
        m_link.Take());
}

TEST_F(DisplayHwTest, AnUnchangedWindowIsSentOnceButHighlightsEveryTime)
{
    m_pDisplay->RedrawWindow();  // nothing drawn yet: nothing sent
    EXPECT_EQ("", m_link.Take());

    m_pDisplay->Clear();
    m_pDisplay->WriteAt("Menu", 2, 1);
    m_pDisplay->RedrawWindow();
    const std::string first = m_link.Take();
    EXPECT_NE(std::string::npos, first.find(Bytes({0x09, 0x54, ' ', 'M', 'e', 'n', 'u'})));
    EXPECT_EQ(5u, Texts(first));

    m_pDisplay->QueueHighlight("enu", 2, 2);
    m_pDisplay->RedrawWindow();
    EXPECT_EQ(Bytes({0x09, 0x59, 0x02, 0x09, 0x58, 0x02, 0x09, 0x52, 0x01, 0x09, 0x54, 'e', 'n', 'u', 0x7E,
                     0x09, 0x52, 0x02}),
              m_link.Take());
    m_pDisplay->RedrawWindow();
    EXPECT_EQ("", m_link.Take());

    m_pDisplay->WriteAt("X", 4, 0);
    m_pDisplay->RedrawWindow();
    EXPECT_FALSE(m_link.Take().empty());
}

// The comparison is with what the panel shows: a row sent on its own (an edit) or a cleared
// panel makes the next redraw send the window even when it equals the last image.
TEST_F(DisplayHwTest, AWindowIsSentAgainAfterARowUpdateOrAClear)
{
    m_pDisplay->Clear();
    m_pDisplay->WriteAt("Value", 3, 1);
    m_pDisplay->RedrawWindow();
    m_link.Take();

    m_pDisplay->QueueHighlightChar('V', 3, 1);
    m_pDisplay->UpdateLine(3);
    m_link.Take();
    m_pDisplay->RedrawWindow();
    EXPECT_EQ(5u, Texts(m_link.Take()));

    m_pDisplay->ClearScreen();
    EXPECT_EQ("\t0~", m_link.Take());
    m_pDisplay->RedrawWindow();
    EXPECT_EQ(5u, Texts(m_link.Take()));
    m_pDisplay->RedrawWindow();
    EXPECT_EQ("", m_link.Take());
}

TEST_F(DisplayHwTest, UpdateLineSendsOneRowAndOnlyItsHighlights)
{
    m_pDisplay->Clear();
    m_pDisplay->WriteAt("Value", 3, 0);
    m_pDisplay->QueueHighlight("V", 3, 0);
    m_pDisplay->QueueHighlightChar('*', 1, 5);

    m_pDisplay->UpdateLine(3);
    EXPECT_EQ(TextAt(3, 0) + "Value" + std::string(25, ' ') + "~" +
                  Bytes({0x09, 0x59, 0x03, 0x09, 0x58, 0x00, 0x09, 0x52, 0x01, 0x09, 0x54, 'V', 0x7E, 0x09,
                         0x52, 0x02}),
              m_link.Take());
    // The highlight of row 1 waited for the next full redraw.
    m_pDisplay->RedrawWindow();
    const std::string redraw = m_link.Take();
    EXPECT_EQ(Bytes({0x09, 0x59, 0x01, 0x09, 0x58, 0x05, 0x09, 0x52, 0x01, 0x09, 0x54, '*', 0x7E, 0x09, 0x52,
                     0x02}),
              redraw.substr(redraw.size() - 16));
}

TEST_F(DisplayHwTest, ClearDropsPendingHighlightsAndAnUnknownWindowDrawsNothing)
{
    m_pDisplay->Clear();
    m_pDisplay->QueueHighlight("x", 1, 1);
    m_pDisplay->Clear();
    m_pDisplay->WriteAt("y", 1, 1);
    m_link.Take();
    m_pDisplay->RedrawWindow();
    EXPECT_EQ(std::string::npos, m_link.Take().find(Bytes({0x09, 0x52, 0x01})));

    EXPECT_FALSE(m_pDisplay->SelectWindow(7));
    EXPECT_EQ(nullptr, m_pDisplay->GetCurrentWindow());
    m_pDisplay->WriteAt("z", 1, 1);
    m_pDisplay->QueueHighlight("z", 1, 1);
    m_pDisplay->UpdateLine(1);
    m_pDisplay->RedrawWindow();
    EXPECT_EQ("", m_link.Take());

    EXPECT_TRUE(m_pDisplay->CreateWindow(7, 30, 5));
    EXPECT_TRUE(m_pDisplay->SelectWindow(0));
    EXPECT_EQ('y', m_pDisplay->GetCurrentWindow()->GetLine(1)[1]);
}

// Screens draw from the key, timer and controller threads: frames must never interleave.
TEST_F(DisplayHwTest, ConcurrentDrawingNeverInterleavesFrames)
{
    Panelsim::CPanelModel panel;
    m_pDisplay->Clear();
    auto draw = [this](int row, char fill) {
        for (int i = 0; i < 200; ++i) {
            m_pDisplay->DrawLine(std::string(30, fill), row);
            m_pDisplay->DrawHighlighted(std::string(5, fill), 3, row);
            m_pDisplay->DrawBlanks(2, 28, row);
        }
    };
    // The panel end reads all along, as the multiplexer would.
    std::atomic<bool> done(false);
    std::string wire;
    std::thread reader([&] {
        while (!done) {
            wire += m_link.Take();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    std::thread first(draw, 1, 'a');
    std::thread second(draw, 2, 'b');
    draw(3, 'c');
    first.join();
    second.join();
    done = true;
    reader.join();
    panel.Feed(wire + m_link.Take());
    EXPECT_EQ(0u, panel.Errors()) << panel.LastError();
    EXPECT_EQ(std::string(3, 'a') + std::string(25, 'a') + "  ", panel.RowText(1));
    EXPECT_EQ(std::string(28, 'b') + "  ", panel.RowText(2));
    EXPECT_TRUE(panel.IsHighlighted(3, 3));
    EXPECT_FALSE(panel.IsHighlighted(3, 8));
}

TEST(ReplaceUnsupportedChars, OnlyTheNamedSequencesBecomeADash)
{
    // Octal escapes where a letter follows, which a hex escape would swallow.
    struct Case_t {
        std::string in;
        std::string out;
    } cases[] = {
        {"plain ASCII ~{}", "plain ASCII ~{}"},
        {"a\177b\177", "a-b\x7F"},     // scanning stops at the first DEL
        {"\xC3\xA9t\xC3\xA9", "-t-"},  // two-byte characters
        {"\302\260C", "-C"},           // lowest lead
        {"\xDF\xBF", "-"},             // highest lead
        {"\xC1\xA9", "\xC1\xA9"},      // not a lead
        {"\303A", "\303A"},            // lead without continuation
        {"end\xC3", "end\xC3"},        // cut off at the end
        {"\xE0\xA0\x80", "-"},         // three bytes, second byte 0xA0
        {"\xEF\xBF\xBD", "-"},
        {"\xE2\x80\x94", "\xE2\x80\x94"},          // second byte below 0xA0: kept
        {"\344\270x", "\344\270x"},                // third byte missing
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},  // four bytes: never replaced
        {"\x80\xBF", "\x80\xBF"},                  // stray continuations
        {"\xC3\xA9\x7F\xC3\xA9", "--\xC3\xA9"},    // replaced up to the DEL only
    };
    for (Case_t& c : cases) {
        std::string text = c.in;
        CDisplay::ReplaceUnsupportedChars(text);
        EXPECT_EQ(c.out, text) << "input of " << c.in.size() << " bytes";
    }
}

}  // namespace
