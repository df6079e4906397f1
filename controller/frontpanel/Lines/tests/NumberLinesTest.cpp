// The key, hexadecimal and decimal entry lines: digit stepping, formats, limits, and what
// a value from the controller that does not fit becomes.
#include <gtest/gtest.h>

#include "LineTestKit.h"
#include "Lines/BissKeyLine.h"
#include "Lines/GenericHexNumLine.h"
#include "Lines/LineNumber.h"

using LineTest::Keys;

TEST(BissKeyLine, DigitsStepThroughHexAndUnsetPositionsAreStars)
{
    CBissKeyLine key(8);
    EXPECT_EQ("", key.GetValue()) << "nothing entered yet";
    key.SetValue("12ab");
    EXPECT_EQ("12AB", key.GetValue()) << "four digits and four stars report the digits";

    key.SetValue("F0A9****");
    Keys(key, "EU");
    EXPECT_EQ("00A9", key.GetValue()) << "UP on F gives 0";
    Keys(key, "RRD");
    EXPECT_EQ("0099", key.GetValue()) << "DOWN on A gives 9";
    Keys(key, "RU");
    EXPECT_EQ("009A", key.GetValue()) << "UP on 9 gives A";
    Keys(key, "RU");
    EXPECT_EQ("009A0", key.GetValue()) << "UP on a star starts at 0";
    Keys(key, "RD");
    EXPECT_EQ("009A0F", key.GetValue()) << "DOWN on a star starts at F";
    EXPECT_FALSE(Keys(key, "X"));
    EXPECT_EQ("F0A9", key.GetValue());

    key.SetValue("1x2-");
    EXPECT_EQ("1*2", key.GetValue()) << "characters that are no digits become stars";
}

TEST(GenericHexNumLine, FormatsZeroPaddedAndKeepsCommitsWithinItsLimit)
{
    CGenericHexNumLine pid(4, 0x1FFF);
    EXPECT_TRUE(pid.SetValue("0x1a"));
    EXPECT_EQ("001A", pid.GetValue());
    EXPECT_FALSE(pid.SetValue("12G4"));
    EXPECT_FALSE(pid.SetValue(""));
    EXPECT_EQ("001A", pid.GetValue()) << "a bad text changes nothing";

    Keys(pid, "EDE");
    EXPECT_EQ("1FFF", pid.GetValue()) << "F000 is above the limit: the limit is committed";

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
    EXPECT_EQ("0450", interval.GetValue()) << "a controller value is shown as it is";
    Keys(interval, "EE");
    EXPECT_EQ("0300", interval.GetValue()) << "and brought to the nearest limit when committed";

    CLineNumber offset(6, 1, -500, 500);
    offset.SetValue("12.5");
    EXPECT_EQ("0012.5", offset.GetValue());
    Keys(offset, "EDE");
    EXPECT_EQ("-012.5", offset.GetValue()) << "a negative range offers the sign first";
    Keys(offset, "ERRRRU");
    EXPECT_EQ("-012.6", offset.GetValue()) << "the point is stepped over";
    Keys(offset, "X");

    CLineNumber unsigned_(3, 0, 0, 999);
    unsigned_.SetValue("100");
    Keys(unsigned_, "EDE");
    EXPECT_EQ("000", unsigned_.GetValue()) << "without negatives the first position is a digit";
}
