// The address, date and time lines: digit-by-digit editing over fixed separators, refusal
// of values that are not real, and what reaches the controller.
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/EditRemoveIpLine.h"
#include "Lines/GenericDateLine.h"
#include "Lines/GenericIpLine.h"
#include "Lines/GenericTimeLine.h"
#include "Lines/LineNumber.h"
#include "PanelTest.h"

using LineTest::Keys;

TEST(GenericIpLine, EditsGroupDigitsAndRefusesAnAddressAbove255)
{
    CGenericIpLine ip;
    EXPECT_EQ("0.0.0.0", ip.GetValue());
    EXPECT_TRUE(ip.SetValue("10.20.4.31"));
    EXPECT_FALSE(ip.SetValue("10.20.4"));
    EXPECT_FALSE(ip.SetValue("10.20.4.256"));
    EXPECT_EQ("10.20.4.31", ip.GetValue());

    // "010.020.004.031": the third RIGHT passes the point to the first digit of "020".
    Keys(ip, "ERRRU");
    EXPECT_EQ("10.120.4.31", ip.GetValue());
    Keys(ip, "LLLLD");
    EXPECT_EQ("10.120.4.30", ip.GetValue()) << "LEFT from the first digit wraps to the last";
    EXPECT_FALSE(Keys(ip, "E"));
    EXPECT_FALSE(ip.WasRefused());
    EXPECT_EQ("10.120.4.30", ip.GetValue());

    Keys(ip, "EUUUE");  // 010 -> 310
    EXPECT_TRUE(ip.WasRefused());
    EXPECT_FALSE(ip.IsEditing()) << "a refusal ends the edit like EXIT";
    EXPECT_EQ("10.120.4.30", ip.GetValue());

    ip.SetAcceptor([](const Qb::CIpAddress& a) { return a.Octet(0) >= 224 && a.Octet(0) <= 239; });
    Keys(ip, "EUUE");  // 210: a valid address, but not a multicast one
    EXPECT_TRUE(ip.WasRefused());
    Keys(ip, "EUURUURDE");  // 239
    EXPECT_FALSE(ip.WasRefused());
    EXPECT_EQ("239.120.4.30", ip.GetValue());
}

TEST(EditRemoveIpLine, TheStopAfterTheAddressRemovesInsteadOfWriting)
{
    CEditRemoveIpLine ip;
    ip.SetValue("10.50.1.10");
    int removed = 0;
    ip.SetRemoveHandler([&](CEditRemoveIpLine&) { ++removed; });

    Keys(ip, "EUL");  // 110..., then LEFT from the first digit lands on "Remove"
    EXPECT_EQ("110.50.1.10", ip.GetValue()) << "the address being edited";
    EXPECT_FALSE(Keys(ip, "E"));
    EXPECT_EQ(1, removed);
    EXPECT_TRUE(ip.IsRemoveRequested());
    EXPECT_EQ("10.50.1.10", ip.GetValue()) << "the edited digits are not taken";

    Keys(ip, "ERRRRRRRRRRRURRE");  // the last digit, then past "Remove" back to the first one
    EXPECT_FALSE(ip.IsRemoveRequested()) << "a new edit clears the request";
    EXPECT_EQ("10.50.1.11", ip.GetValue());
    EXPECT_EQ(1, removed);
}

TEST(ClockLines, DatesAndTimesMustBeRealAndKeepTheOtherHalf)
{
    CGenericDateLine date;
    EXPECT_EQ("01/01/2000", date.GetValue());
    EXPECT_TRUE(date.SetValue("02/28/2024 23:59:10"));
    EXPECT_EQ("02/28/2024", date.GetPart());
    Keys(date, "ERRRUE");  // 02/28 -> 02/29 (2024 is a leap year)
    EXPECT_FALSE(date.WasRefused());
    EXPECT_EQ("02/29/2024 23:59:10", date.GetValue()) << "the time is written back unchanged";
    Keys(date, "ERRRRRRRDE");  // 2023: no 29th of February
    EXPECT_TRUE(date.WasRefused());
    Keys(date, "EUE");  // month 12
    EXPECT_EQ("12/29/2024", date.GetPart());
    Keys(date, "EUE");  // month 22
    EXPECT_TRUE(date.WasRefused());
    EXPECT_FALSE(date.SetValue("2024-02-28"));

    CGenericTimeLine time;
    EXPECT_TRUE(time.SetValue("11/22/2026 09:30:00"));
    EXPECT_EQ("09:30:00", time.GetPart()) << "the time is found at the end";
    Keys(time, "EUUUE");  // 39:30:00
    EXPECT_TRUE(time.WasRefused());
    Keys(time, "ERRUUE");  // 09:50:00
    EXPECT_EQ("11/22/2026 09:50:00", time.GetValue());
    EXPECT_TRUE(time.SetValue("23:59:59")) << "the part alone";
    EXPECT_EQ("23:59:59", time.GetValue());
}

class ClockLinePanelTest : public PanelTest::CPanelTest {};

TEST_F(ClockLinePanelTest, BoundLinesWriteTheObjectsFormatOnlyWhenAccepted)
{
    CTavClient* pClient = Client();
    // A clock set by hand, so the unit takes written times and ticks on from a known day.
    ASSERT_TRUE(pClient->SendData("datetimeUpdateMode", ".0", "Manual"));
    ASSERT_TRUE(pClient->SendData("datetimeNow", ".0", "11/22/2026 09:30:00"));
    LineTest::CWriteRecorder clock(pClient, "datetimeNow", ".0");
    // The unit's clock ticks by writing the object too: keep only what differs from its day.
    const std::string today = "11/22/2026 ";
    auto ours = [&](const std::vector<std::string>& values) {
        std::vector<std::string> kept;
        for (const std::string& value : values)
            if (value.compare(0, today.size(), today) != 0)
                kept.push_back(value);
        return kept;
    };
    CGenericDateLine date;
    date.SetClient(pClient);
    date.BindObject("datetimeNow", ".0");
    date.RefreshValue();
    Keys(date, "EUE");  // month 11 -> 21: refused
    EXPECT_TRUE(ours(clock.WritesBefore(today + "08:00:00")).empty());

    date.RefreshValue();
    Keys(date, "ERRRRRRRUE");  // 2026 -> 2027
    std::vector<std::string> writes = ours(clock.WritesBefore(today + "08:00:01"));
    ASSERT_EQ(1u, writes.size());
    EXPECT_EQ("11/22/2027 ", writes[0].substr(0, 11));
    EXPECT_EQ(19u, writes[0].size()) << "with the clock's time as it was when written";

    LineTest::CWriteRecorder interval(pClient, "inputSwitchOverInterval", ".1.1");
    CLineNumber number(4, 0, 0, 300);
    number.SetClient(pClient);
    number.BindObject("inputSwitchOverInterval", ".1.1");
    number.RefreshValue();
    Keys(number, "ERRUE");  // 0005 -> 0015
    EXPECT_EQ((std::vector<std::string>{"15"}), interval.WritesBefore("5"))
        << "the zero-padded text is taken as the number it reads";
}

TEST_F(ClockLinePanelTest, AddressEditingShowsGroupsAndTheRemoveStop)
{
    CDisplay& display = Rig().Display();
    display.Clear();
    CGenericIpLine ip;
    ip.SetLabel("IP: ");
    ip.SetValue("10.20.4.31");
    ip.SetDisplay(&display);
    ip.Draw(1);
    Keys(ip, "ERRRU");
    ip.Draw(2);

    CEditRemoveIpLine filter;
    filter.SetValue("232.1.1.7");
    filter.SetDisplay(&display);
    Keys(filter, "EL");
    filter.Draw(3);

    CLineNumber interval(4, 0, 0, 300);
    interval.SetLabel("Switchover: ");
    interval.SetSuffix(" Sec");
    interval.SetValue("5");
    interval.SetDisplay(&display);
    interval.Draw(4);
    display.RedrawWindow();
    EXPECT_PANEL("lines_address_editing_and_remove_stop");
}
