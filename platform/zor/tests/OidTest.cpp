#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "Zor/Oid.h"

using Zor::COid;

TEST(Oid, ParsesWithOrWithoutLeadingPointAndRejectsTheRest)
{
    EXPECT_EQ(COid("1.1").OidStr(), ".1.1");
    EXPECT_EQ(COid(".1.1").OidStr(), ".1.1");
    EXPECT_EQ(COid("0").OidStr(), ".0");
    EXPECT_EQ(COid(std::string(".4294967295")).GetDigitL(0), 4294967295u);
    for (const char* bad : {"", ".", "1.", "1..2", "..1", "a", "1.x", "-1", " 1", "%", ".%", "4294967296"}) {
        EXPECT_TRUE(COid(bad).IsEmpty()) << bad;
    }
    EXPECT_TRUE(COid(static_cast<const char*>(nullptr)).IsEmpty());

    COid oid(".1");
    EXPECT_TRUE(oid.Str2Oid("2.3", false));  // appends
    EXPECT_EQ(oid.OidStr(), ".1.2.3");
    EXPECT_FALSE(oid.Str2Oid("x", false));  // malformed append leaves it alone
    EXPECT_EQ(oid.OidStr(), ".1.2.3");
    EXPECT_FALSE(oid.Str2Oid("x", true));
    EXPECT_TRUE(oid.IsEmpty());
    oid = "7.8";
    EXPECT_EQ(oid.Length(), 2u);
}

TEST(Oid, BuildsAndTakesApart)
{
    EXPECT_EQ(COid(2, 1, 1).OidStr(), ".1.1");
    EXPECT_EQ(COid(0, 5).OidStr(), "");
    EXPECT_EQ(COid(3, 1, 2, 3).OidStr(), ".1.2.3");
    EXPECT_EQ(COid(9, 1, 2, 3).Length(), 3u);

    COid oid(".1.2.3");
    EXPECT_EQ(oid.GetDigitL(0), 1u);
    EXPECT_EQ(oid.GetDigitL(2), 3u);
    EXPECT_EQ(oid.GetDigitL(3), 0u);
    EXPECT_EQ(oid.GetDigitR(0), 3u);
    EXPECT_EQ(oid.GetDigitR(2), 1u);
    EXPECT_EQ(oid.GetDigitR(5), 0u);
    EXPECT_EQ(oid.OidSubStrL(2), ".1.2");
    EXPECT_EQ(oid.OidSubStrL(0), "");
    EXPECT_EQ(oid.OidSubStrL(10), ".1.2.3");
    EXPECT_EQ((COid(".1") + COid("2.3")).OidStr(), ".1.2.3");
    EXPECT_EQ((COid(".1") + 4).OidStr(), ".1.4");
    EXPECT_EQ((COid(".1") + -4).OidStr(), ".1");
}

TEST(Oid, OrdersAsNumbersLikeAWalk)
{
    std::vector<COid> oids = {COid(".10"), COid(".2"), COid(".1.1"), COid(".1"), COid(".1.10"), COid(".1.2")};
    std::sort(oids.begin(), oids.end());
    std::vector<std::string> texts;
    for (const auto& o : oids) {
        texts.push_back(o.OidStr());
    }
    EXPECT_EQ(texts, (std::vector<std::string>{".1", ".1.1", ".1.2", ".1.10", ".2", ".10"}));
    EXPECT_EQ(COid("1.1"), COid(".1.1"));
}
