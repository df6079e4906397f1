// The key, hexadecimal and decimal entry lines: digit stepping, formats, limits, and what
// a value from the controller that does not fit becomes.
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/BissKeyLine.h"
#include "Lines/GenericHexNumLine.h"
#include "Lines/LineNumber.h"

using LineTest::Keys;
using LineTest::Steps;

TEST(BissKeyLine, DigitsStepThroughHexAndUnsetPositionsAreStars)
{
    CBissKeyLine key(8);
    EXPECT_EQ("", key.GetValue()) << "nothing entered yet";
    key.SetValue("12ab");
    EXPECT_EQ("12AB", key.GetValue()) << "four digits and four stars report the digits";
    key.SetValue("1x2-");
    EXPECT_EQ("1*2", key.GetValue()) << "characters that are no digits become stars";

    key.SetValue("F0A9****");
    Steps(key, {
                   {"EU", "00A9"},    // UP on F gives 0
                   {"2RD", "0099"},   // DOWN on A gives 9
                   {"RU", "009A"},    // UP on 9 gives A
                   {"RU", "009A0"},   // UP on a star starts at 0
                   {"RD", "009A0F"},  // DOWN on a star starts at F
                   {"X", "F0A9", 0},
               });
}

TEST(GenericHexNumLine, FormatsZeroPaddedAndKeepsCommitsWithinItsLimit)
{
    CGenericHexNumLine pid(4, 0x1FFF);
    EXPECT_TRUE(pid.SetValue("0x1a"));
    EXPECT_FALSE(pid.SetValue("12G4"));
    EXPECT_FALSE(pid.SetValue(""));
    Steps(pid, {{"", "001A"}, {"EDE", "1FFF"}});  // a bad text changed nothing; F000 is above the limit

    CGenericHexNumLine ssrc(8);
    EXPECT_TRUE(ssrc.SetValue("FFFFFFFF"));
    EXPECT_EQ(0xFFFFFFFFu, ssrc.GetNumber()) << "all 32 bits, on any word size";

    CGenericHexNumLine decimal(4);
    decimal.SetDecimalTransfer(true);
    EXPECT_TRUE(decimal.SetValue("256"));
    EXPECT_EQ("256", decimal.GetValue()) << "exchanged as a decimal number";
    EXPECT_FALSE(decimal.SetValue("0x100"));
}

TEST(LineNumber, FormatsWidthAndDecimalsAndClampsCommitsToItsLimits)
{
    CLineNumber interval(4, 0, 0, 300);
    EXPECT_TRUE(interval.SetValue("5"));
    EXPECT_EQ("0005", interval.GetValue());
    EXPECT_FALSE(interval.SetValue("five"));
    EXPECT_FALSE(interval.SetValue("nan"));
    EXPECT_TRUE(interval.SetValue("450"));
    // A controller value is shown as it is, and brought to the nearest limit when committed.
    Steps(interval, {{"", "0450"}, {"EE", "0300"}});

    CLineNumber offset(6, 1, -500, 500);
    offset.SetValue("12.5");
    Steps(offset, {
                      {"", "0012.5"},
                      {"EDE", "-012.5"},   // a negative range offers the sign first
                      {"E4RU", "-012.6"},  // the point is stepped over
                  });
    Keys(offset, "X");

    CLineNumber unsigned_(3, 0, 0, 999);
    unsigned_.SetValue("100");
    Steps(unsigned_, {{"EDE", "000"}});  // without negatives the first position is a digit
}
