// Dotted-quad addresses and the string helpers.
#include <gtest/gtest.h>

#include "Qb/IpAddress.h"
#include "Qb/Str.h"

using namespace Qb;

TEST(QbText, IpAddressParsesStrictDottedQuads)
{
    CIpAddress a("192.168.1.20");
    EXPECT_TRUE(a.IsValid());
    EXPECT_EQ(0xC0A80114u, a.Value());
    EXPECT_EQ(20, a.Octet(3));
    EXPECT_EQ("192.168.1.20", a.ToString());
    // Fixed-width edit fields pad with zeros; that is decimal, never octal.
    EXPECT_EQ("10.0.8.9", CIpAddress("010.000.008.009").ToString());
    EXPECT_EQ("10.1.2.3", CIpAddress(0x0A010203u).ToString());

    for (const char* bad : {"", "1.2.3", "1.2.3.4.5", "256.1.1.1", "1.2.3.4 ", " 1.2.3.4", "+1.2.3.4",
                            "1..2.3", "1.2.3.", "a.b.c.d", "1.2.3.-4", "0001.2.3.4", "1.2.3.4\n"}) {
        CIpAddress b(bad);
        EXPECT_FALSE(b.IsValid()) << '"' << bad << '"';
        EXPECT_EQ("0.0.0.0", b.ToString()) << '"' << bad << '"';
    }
    CIpAddress c("1.2.3.4");
    EXPECT_FALSE(c.Parse("1.2.3.999"));  // a failed parse clears the old value
    EXPECT_EQ(CIpAddress(), c);
}

TEST(QbText, FormatHandlesAnyLength)
{
    EXPECT_EQ("x=42 y=-7 z=ab", Str::Format("x=%d y=%d z=%s", 42, -7, "ab"));
    const std::string longText(5000, 'q');
    EXPECT_EQ(longText + "!", Str::Format("%s!", longText.c_str()));
}

TEST(QbText, NumbersParseWholeTextOrGiveTheDefault)
{
    EXPECT_EQ(-12, Str::ToInt32(" -12 ", 5));
    EXPECT_EQ(5, Str::ToInt32("12abc", 5));
    EXPECT_EQ(5, Str::ToInt32("", 5));
    EXPECT_EQ(5, Str::ToInt32("2147483648", 5));  // overflow, also where long is 32 bits
    EXPECT_EQ(-2147483647 - 1, Str::ToInt32("-2147483648", 5));
    EXPECT_EQ(4294967295u, Str::ToUInt32("4294967295", 1));
    EXPECT_EQ(1u, Str::ToUInt32("-1", 1));  // no wrap-around
    EXPECT_EQ(1u, Str::ToUInt32("4294967296", 1));
    EXPECT_EQ(8589934592LL, Str::ToInt64("8589934592", 0));
    EXPECT_DOUBLE_EQ(-1.0, Str::ToDouble("2.5 dB", -1.0));
    EXPECT_DOUBLE_EQ(-1.0, Str::ToDouble("nan", -1.0));
    EXPECT_TRUE(Str::ToBool("TRUE", false));
    EXPECT_TRUE(Str::ToBool("2", false));
    EXPECT_FALSE(Str::ToBool("0", true));
    EXPECT_FALSE(Str::ToBool("yes", false));
}

TEST(QbText, TrimAndSplit)
{
    EXPECT_EQ("a b", Str::Trim(" \t a b\r\n"));
    EXPECT_EQ((std::vector<std::string>{"a", "", "b", ""}), Str::Split("a,,b,", ','));
    EXPECT_TRUE(Str::Split("", ',').empty());
}
