// The address, date and time lines: digit-by-digit editing over fixed separators, refusal
// of values that are not real (what reaches the controller is tested on the screens over
// unitd).
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/EditRemoveIpLine.h"
#include "Lines/GenericDateLine.h"
#include "Lines/GenericIpLine.h"
#include "Lines/GenericTimeLine.h"
#include "Lines/LineNumber.h"
#include "PanelTest.h"

using LineTest::Keys;
using LineTest::Steps;

TEST(GenericIpLine, EditsGroupDigitsAndRefusesAnAddressAbove255)
{
    CGenericIpLine ip;
    EXPECT_EQ("0.0.0.0", ip.GetValue());
    EXPECT_TRUE(ip.SetValue("10.20.4.31"));
    EXPECT_FALSE(ip.SetValue("10.20.4"));
    EXPECT_FALSE(ip.SetValue("10.20.4.256"));
    Steps(ip, {
                  {"", "10.20.4.31"},
                  // "010.020.004.031": the third RIGHT passes the point to the first digit of "020".
                  {"E3RU", "10.120.4.31"},
                  {"4LD", "10.120.4.30"},  // LEFT from the first digit wraps to the last
                  {"E", "10.120.4.30", 0, 0},
                  {"E3UE", "10.120.4.30", 0, 1},  // 310: refused, which ends the edit like EXIT
              });
    ip.SetAcceptor([](const Qb::CIpAddress& a) { return a.Octet(0) >= 224 && a.Octet(0) <= 239; });
    Steps(ip, {
                  {"E2UE", "10.120.4.30", 0, 1},  // 210: a valid address, but not a multicast one
                  {"E2UR2URDE", "239.120.4.30", 0, 0},
              });
}

TEST(EditRemoveIpLine, TheStopAfterTheAddressRemovesInsteadOfWriting)
{
    CEditRemoveIpLine ip;
    ip.SetValue("10.50.1.10");
    int removed = 0;
    ip.SetRemoveHandler([&](CEditRemoveIpLine&) { ++removed; });
    // 110..., then LEFT from the first digit lands on "Remove": ENTER there takes the edited
    // digits back and removes.
    Steps(ip, {{"EUL", "110.50.1.10"}, {"E", "10.50.1.10", 0}});
    EXPECT_EQ(1, removed);
    EXPECT_TRUE(ip.IsRemoveRequested());
    Steps(ip, {{"E11RU2RE", "10.50.1.11"}});  // the last digit, then past "Remove" back to the first one
    EXPECT_FALSE(ip.IsRemoveRequested()) << "a new edit clears the request";
    EXPECT_EQ(1, removed);
}

TEST(ClockLines, DatesAndTimesMustBeRealAndKeepTheOtherHalf)
{
    CGenericDateLine date;
    EXPECT_EQ("01/01/2000", date.GetValue());
    EXPECT_TRUE(date.SetValue("02/28/2024 23:59:10"));
    EXPECT_EQ("02/28/2024", date.GetPart());
    EXPECT_FALSE(date.SetValue("2024-02-28"));
    Steps(date, {
                    {"E3RUE", "02/29/2024 23:59:10", 0, 0},  // a leap year; the time written back unchanged
                    {"E7RDE", "02/29/2024 23:59:10", 0, 1},  // 2023: no 29th of February
                    {"EUE", "12/29/2024 23:59:10", 0, 0},
                    {"EUE", "12/29/2024 23:59:10", 0, 1},  // month 22
                });

    CGenericTimeLine time;
    EXPECT_TRUE(time.SetValue("11/22/2026 09:30:00"));
    EXPECT_EQ("09:30:00", time.GetPart()) << "the time is found at the end";
    Steps(time, {{"E3UE", "11/22/2026 09:30:00", 0, 1}, {"E2R2UE", "11/22/2026 09:50:00", 0, 0}});  // 39:30
    EXPECT_TRUE(time.SetValue("23:59:59")) << "the part alone";
    EXPECT_EQ("23:59:59", time.GetValue());
}

class ClockLinePanelTest : public PanelTest::CPanelTest {};

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
