#include <gtest/gtest.h>

#include "Zor/Param.h"
#include "ZorJson/ParamJson.h"

using Zor::CParam;

TEST(Param, ConversionsOfEveryTypeFallBackToTheDefault)
{
    const CParam null;
    EXPECT_EQ(null.ToString("d"), "d");
    EXPECT_EQ(null.ToInt32(-7), -7);
    EXPECT_EQ(null.ToUInt32(7u), 7u);
    EXPECT_EQ(null.ToInt64(-9), -9);
    EXPECT_EQ(null.ToDouble(1.5), 1.5);
    EXPECT_TRUE(null.ToBool(true));
    EXPECT_EQ(null.ToChar('x'), 'x');

    const CParam i = CParam::Int(42);
    EXPECT_EQ(i.ToString(""), "42");
    EXPECT_EQ(i.ToInt32(0), 42);
    EXPECT_EQ(i.ToDouble(0), 42.0);
    EXPECT_TRUE(i.ToBool(false));
    EXPECT_EQ(i.ToChar('x'), '4');
    EXPECT_EQ(CParam::Int(-1).ToUInt32(5u), 5u);           // negative is no unsigned
    EXPECT_EQ(CParam::Int(5000000000LL).ToInt32(-1), -1);  // too big for 32 bits
    EXPECT_EQ(CParam::Int(4294967295LL).ToUInt32(0), 4294967295u);
    EXPECT_EQ(CParam::Int(5000000000LL).ToInt64(0), 5000000000LL);

    const CParam b = CParam::Bool(true);
    EXPECT_EQ(b.ToString(""), "true");
    EXPECT_EQ(b.ToInt32(0), 1);
    EXPECT_EQ(CParam::Bool(false).ToUInt32(9), 0u);

    const CParam d = CParam::Double(-20.5);
    EXPECT_EQ(d.ToString(""), "-20.5");
    EXPECT_EQ(d.ToInt32(0), -20);  // truncated toward zero
    EXPECT_EQ(CParam::Double(0.1).ToString(""), "0.1");

    // Texts convert only when the whole text is a number, or true/false.
    EXPECT_EQ(CParam::String("12").ToInt32(0), 12);
    EXPECT_EQ(CParam::String("-12").ToInt64(0), -12);
    EXPECT_EQ(CParam::String("12a").ToInt32(-1), -1);
    EXPECT_EQ(CParam::String(" 12").ToInt32(-1), -1);
    EXPECT_EQ(CParam::String("").ToInt32(-1), -1);
    EXPECT_EQ(CParam::String("2.5").ToInt32(-1), -1);
    EXPECT_EQ(CParam::String("2.5").ToDouble(0), 2.5);
    EXPECT_EQ(CParam::String("inf").ToDouble(-1), -1);
    EXPECT_EQ(CParam::String("0x10").ToDouble(-1), -1);
    EXPECT_EQ(CParam::String("true").ToInt32(-1), 1);
    EXPECT_EQ(CParam::String("false").ToUInt32(9), 0u);
    EXPECT_TRUE(CParam::String("true").ToBool(false));
    EXPECT_FALSE(CParam::String("0").ToBool(true));
    EXPECT_TRUE(CParam::String("yes").ToBool(true));
    EXPECT_FALSE(CParam::String("yes").ToBool(false));
    EXPECT_EQ(CParam::String("").ToChar('x'), 'x');
    EXPECT_EQ(CParam::String("Abc").ToChar('x'), 'A');
    EXPECT_EQ(CParam::String("99999999999").ToInt32(-1), -1);

    // Containers convert to nothing.
    CParam list(Zor::PT_LIST);
    list.AddParam(CParam::Int(1));
    EXPECT_EQ(list.ToString("d"), "d");
    EXPECT_EQ(list.ToInt32(-3), -3);
}

TEST(Param, ListsAndMapsGrowAndIndexSafely)
{
    CParam list(Zor::PT_LIST);
    EXPECT_TRUE(list.IsList());
    list.AddParam(CParam::String("a"));
    list[3] = CParam::Int(3);  // grows with nulls
    EXPECT_EQ(list.Length(), 4);
    EXPECT_TRUE(list[1].IsNull());
    const CParam& clist = list;
    EXPECT_TRUE(clist[9].IsNull());
    EXPECT_TRUE(clist[-1].IsNull());
    EXPECT_TRUE(clist["key"].IsNull());

    CParam null;
    null.AddParam(CParam::Int(1));  // a null becomes a list
    EXPECT_EQ(null.Length(), 1);
    CParam scalar = CParam::Int(1);
    scalar.AddParam(CParam::Int(2));  // ignored
    EXPECT_EQ(scalar.Type(), Zor::PT_INT);

    CParam map;
    map["zeta"] = CParam::Int(1);
    map["alpha"].Assign("two");
    map["zeta"].Assign(3);
    EXPECT_TRUE(map.IsMap());
    EXPECT_EQ(map.Length(), 2);
    EXPECT_EQ(map.GetKey(0), "zeta");  // insertion order, not sorted
    EXPECT_EQ(map.GetKey(1), "alpha");
    EXPECT_EQ(map.GetKey(2), "");
    EXPECT_TRUE(map.KeyExists("alpha"));
    EXPECT_FALSE(map.KeyExists("beta"));
    const CParam& cmap = map;
    EXPECT_TRUE(cmap["beta"].IsNull());
    EXPECT_EQ(map.Length(), 2);  // const lookup adds nothing
    EXPECT_EQ(cmap["zeta"].ToInt32(0), 3);

    // Assignment from an element of itself keeps the element, by copy and by move.
    CParam nested = map;
    map = map["alpha"];
    EXPECT_EQ(map.ToString(""), "two");
    nested = std::move(nested["zeta"]);
    EXPECT_EQ(nested.ToInt32(0), 3);
    CParam moved(std::move(nested));
    EXPECT_TRUE(nested.IsNull());  // NOLINT: a moved-from value is null on purpose
    EXPECT_EQ(moved.ToInt32(0), 3);

    map.Clear(Zor::PT_LIST);
    EXPECT_TRUE(map.IsList());
    EXPECT_EQ(map.Length(), 0);
    map.Initialize();
    EXPECT_TRUE(map.IsNull());
    CParam s;
    s.Assign(static_cast<const char*>(nullptr));
    EXPECT_EQ(s.Type(), Zor::PT_STRING);
    EXPECT_EQ(s.ToString("d"), "");
}

TEST(Param, EqualityAndJsonRoundTripKeepTypesAndOrder)
{
    CParam v;
    v["name"] = CParam::String("IRD");
    v["count"] = CParam::Int(2);
    v["on"] = CParam::Bool(true);
    v["level"] = CParam::Double(-20.0);
    v["list"].AddParam(CParam());
    EXPECT_EQ(Zor::ParamToJson(v).dump(),
              R"({"name":"IRD","count":2,"on":true,"level":-20.0,"list":[null]})");
    EXPECT_EQ(Zor::ParamFromJson(Zor::ParamToJson(v)), v);
    EXPECT_NE(CParam::Int(1), CParam::String("1"));
    EXPECT_NE(CParam::Int(1), CParam::Bool(true));
}
