#include <gtest/gtest.h>

#include <fstream>

#include "Unit/VirtualUnit.h"

using Unit::CVirtualUnit;
using Zor::COid;
using Zor::CParam;

namespace {

std::shared_ptr<CVirtualUnit> Load(const std::string& file)
{
    std::string error;
    auto unit = CVirtualUnit::LoadFile(file, error);
    EXPECT_TRUE(unit) << error;
    return unit;
}

std::string LoadError(const std::string& text)
{
    std::string error;
    EXPECT_FALSE(CVirtualUnit::FromText(text, error));
    return error;
}

}  // namespace

TEST(VirtualUnit, RefusesBrokenUnitFilesWithTheReason)
{
    EXPECT_EQ(LoadError("{"), "not valid JSON");
    EXPECT_EQ(LoadError("[]"), "a unit file is one JSON object");
    EXPECT_EQ(LoadError(R"({"objects": {"a": {"type": "text", "values": {".0": "x"}}}})"),
              "a: \"type\" must be string, int, bool, double or enum");
    EXPECT_EQ(LoadError(R"({"objects": {"a": {"type": "int", "values": {".0": "x"}}}})"),
              "a: \"x\" is not an integer (instance .0)");
    EXPECT_EQ(LoadError(R"({"objects": {"a": {"type": "int", "values": {"x": 1}}}})"),
              "a: bad instance \"x\"");
    EXPECT_EQ(LoadError(R"({"objects": {"a": {"type": "enum", "texts": ["A"], "values": {".0": "B"}}}})"),
              "a: \"B\" is not one of A (instance .0)");
    EXPECT_EQ(LoadError(R"({"objects": {"a": {"type": "int"}}})"),
              "a: \"values\" must map instances to values");
    EXPECT_EQ(LoadError(R"({"subsystems": {"T2Mi": [".x"]}})"), "subsystem T2Mi: bad instance \".x\"");
    EXPECT_EQ(LoadError(R"({"objects": {"a": {"type": "int", "readonly": "yes", "values": {".0": 1}}}})"),
              "a: \"readonly\" must be true or false");
    EXPECT_EQ(LoadError(R"({"objects": {"a": {"type": "int", "values": {".0": [[1]]}}}})"),
              "a: a value must be a text, number or boolean (instance .0)");
    // Behaviour settings of the wrong type fall back to their defaults.
    std::string error;
    EXPECT_TRUE(CVirtualUnit::FromText(R"({"behaviours": {"datetimeTick": "no", "datetimeFormat": 5,
        "reboot": {"objects": 1, "ms": "x"}}, "objects": {"datetimeNow": {"type": "string", "values": {".0": ""}}}})",
                                       error))
        << error;
    EXPECT_FALSE(CVirtualUnit::LoadFile("/nonexistent.json", error));
    EXPECT_EQ(error, "cannot read unit file /nonexistent.json");
}

TEST(VirtualUnit, ConvertsWrittenValuesToTheObjectsType)
{
    auto unit = Load(UNIT_TEST_FILES "/small.json");
    auto set = [&](const char* name, const char* inst, const CParam& v, bool force = false) {
        return unit->Set("t", Unit::Write_t{name, inst, v}, force);
    };
    auto get = [&](const char* name, const char* inst) { return unit->GetOne(name, COid(inst)).Val(); };

    EXPECT_TRUE(set("frontpanelLockMode", ".0", CParam::Int(3)).Success());
    EXPECT_TRUE(set("frontpanelLockMode", "0", CParam::Double(2.0)).Success());
    EXPECT_EQ(get("frontpanelLockMode", ".0"), CParam::Int(2));
    EXPECT_EQ(set("frontpanelLockMode", ".0", CParam::Double(2.5)).Msg(),
              "frontpanelLockMode: \"2.5\" is not an integer");
    EXPECT_EQ(set("frontpanelLockMode", ".0", CParam::String("0")).Msg(),
              "frontpanelLockMode: 0 is out of range 1..3");

    // Booleans take true/false and 1/0, as text or number.
    const std::pair<CParam, bool> booleans[] = {
        {CParam::String("true"), true}, {CParam::String("1"), true}, {CParam::Int(0), false}};
    for (const auto& b : booleans) {
        EXPECT_TRUE(set("avssconfigGenlockAvail", ".1.1", CParam::String(b.second ? "false" : "true"), true)
                        .Success());
        EXPECT_TRUE(set("avssconfigGenlockAvail", ".1.1", b.first, true).Success());
        EXPECT_EQ(get("avssconfigGenlockAvail", ".1.1"), CParam::Bool(b.second)) << b.first.ToString("");
    }
    EXPECT_FALSE(set("avssconfigGenlockAvail", ".1.1", CParam::Int(2), true).Success());

    EXPECT_TRUE(set("unitAlias", ".0", CParam::Int(42)).Success());
    EXPECT_EQ(get("unitAlias", ".0"), CParam::String("42"));
    EXPECT_EQ(set("audioLevel", ".1.1", CParam::String("loud")).Msg(),
              "audioLevel: \"loud\" is not a number");
    EXPECT_EQ(set("audioLevel", ".1.1", CParam::String("3")).Msg(), "audioLevel: 3 is out of range -60..0");
    EXPECT_EQ(set("dvbs2ssconfigModulation", ".1.1", CParam::String("16APSK")).Msg(),
              "dvbs2ssconfigModulation: \"16APSK\" is not one of QPSK, 8PSK, Auto");
    EXPECT_EQ(set("unitAlias", ".0", CParam()).Msg(), "unitAlias: a value must be a text, number or boolean");
    EXPECT_EQ(set("unitAlias", ".1", CParam::String("x")).Msg(), "unitAlias: no instance \".1\"");
    EXPECT_EQ(set("unitAlias", "x", CParam::String("x")).Msg(), "unitAlias: bad instance \"x\"");
    EXPECT_EQ(set("nothing", ".0", CParam::String("x")).Msg(), "unknown object: nothing");
}

TEST(VirtualUnit, JournalsClientWritesRefusedOnesToo)
{
    auto unit = Load(UNIT_TEST_FILES "/small.json");
    unit->Set("zor.fp", Unit::Write_t{"unitAlias", ".0", CParam::String("A")}, false);
    unit->Set("zorctl", Unit::Write_t{"tsinputsrcLabel", "1.1", CParam::String("B")}, false);
    uint32_t next = 0;
    auto all = unit->Writes(0, next);
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(next, 3u);
    EXPECT_TRUE(all[0].ok);
    EXPECT_EQ(all[1].client, "zorctl");
    EXPECT_EQ(all[1].instance, "1.1");  // as the client sent it
    EXPECT_EQ(all[1].msg, "tsinputsrcLabel is read-only");
    EXPECT_EQ(unit->Writes(2, next).size(), 1u);
    EXPECT_TRUE(unit->Writes(3, next).empty());
}

TEST(VirtualUnit, ShippedUnitsLoadAndAnswerTheScreensQuestions)
{
    auto full = Load(SHIPPED_UNITS "/full.json");
    auto minimal = Load(SHIPPED_UNITS "/minimal.json");
    ASSERT_TRUE(full && minimal);
    EXPECT_TRUE(minimal->Subsystems({"Esam"}).IsNull());
    EXPECT_FALSE(full->Subsystems({"Esam"}).IsNull());
    CParam labels = minimal->Get({"tsinputsrcLabel.%"});
    EXPECT_EQ(labels["tsinputsrcLabel"].Length(), 3);
    EXPECT_EQ(full->Get({"systemState.0"})["systemState"][".0"].ToUInt32(0) & ~2u, 1u);
}
