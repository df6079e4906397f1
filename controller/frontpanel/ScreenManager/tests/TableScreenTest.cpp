// The declarative rows: shown texts of values, and the lines a table makes.
#include <gtest/gtest.h>

#include "Lines/GenericLine.h"
#include "ScreenManager/Rows.h"
#include "ScreenManager/MenuStyleBasic.h"
#include "ScreenManager/TableScreen.h"
#include "Zor/Param.h"

namespace {

std::string Formatted(const char* format, const char* text, double scale = 1.0)
{
    std::string out = "(refused)";
    FormatNumber(format, text, scale, &out);
    return out;
}

Zor::CParam Temperatures(std::initializer_list<const char*> instances)
{
    Zor::CParam values(Zor::PT_MAP);
    for (const char* instance : instances)
        values["tempReading"][instance] = Zor::CParam::Double(40.5);
    return values;
}

}  // namespace

TEST(LineSpecTest, NumbersAreFormattedOnlyThroughOneCheckedConversion)
{
    EXPECT_EQ(Formatted("%.2f", "12.06"), "12.06");
    EXPECT_EQ(Formatted("%.2f", "41.5"), "41.50");
    EXPECT_EQ(Formatted("%2.3f", "38014600", 1e-6), "38.015");
    EXPECT_EQ(Formatted("%1.1E", "0.000012"), "1.2E-05");
    EXPECT_EQ(Formatted("%d", "12.7"), "12");
    EXPECT_EQ(Formatted("%02i", "7"), "07");
    EXPECT_EQ(Formatted("%%%.1f%%", "5"), "%5.0%");

    // Anything but one numeric conversion, or a value that is not a number, is refused.
    for (const char* bad : {"%s", "%n", "%p", "%.2f%d", "%123f", "%", "plain", "%*d", "%ld"})
        EXPECT_EQ(Formatted(bad, "1"), "(refused)") << bad;
    for (const char* text : {"", "abc", "12abc", "nan"})
        EXPECT_EQ(Formatted("%.2f", text), "(refused)") << text;
}

TEST(LineSpecTest, ShownTextsOfStatusRows)
{
    CRow volts = Text("12V: ", "sensor12V", ".0", "%.2f");
    EXPECT_EQ(volts.Shown(Zor::CParam::Double(12.06)), "12.06");
    EXPECT_EQ(volts.Shown(Zor::CParam::String("n/a")), "n/a");  // not a number: as it is
    EXPECT_EQ(volts.Shown(Zor::CParam()), "");

    CRow rate = Text("Bitrate: ", "tsinputsrcTsBitrate", ".1", "%2.3f").Scale(1e-6).Unit(" Mbps");
    EXPECT_EQ(rate.Shown(Zor::CParam::Int(38000000)), "38.000 Mbps");

    CRow sync = Text("TS Sync: ", "tsinputsrcTsSync", ".1").Map({{"1", "Locked"}}).Missing("Unlocked");
    EXPECT_EQ(sync.Shown(Zor::CParam::String("1")), "Locked");
    EXPECT_EQ(sync.Shown(Zor::CParam::String("")), "Unlocked");

    CRow errors = Text("Corr FEC Errors: ", "vsbinCorrectableFecErrors", ".1", "%d").Clip(">99999999");
    EXPECT_EQ(errors.Shown(Zor::CParam::Int(99999999)), "99999999");
    EXPECT_EQ(errors.Shown(Zor::CParam::Int(100000000)), ">99999999");

    // A list shown on a status page shows the entry text of a controller value.
    CRow primary = List("Primary: ", "inputPrimarySrc", ".1.1", {}).Choice("ASI", "167771907");
    EXPECT_EQ(primary.Shown(Zor::CParam::String("167771907")), "ASI");
}

TEST(LineTableTest, RowsPerInstanceAreMadeAgainOnlyWhenTheInstancesChange)
{
    CMenuStyleBasic style;
    CLineTable table({Heading("Sensors"), Text("Sensor #: ", "tempReading", kEach, "%.2f")}, false);
    EXPECT_EQ(table.Requests(), std::vector<std::string>({"tempReading.%"}));

    EXPECT_TRUE(table.Make(style, Zor::CParam(Zor::PT_MAP)));
    EXPECT_EQ(style.GetLines().GetCount(), 1);

    EXPECT_TRUE(table.Make(style, Temperatures({".1", ".2"})));
    ASSERT_EQ(style.GetLines().GetCount(), 3);
    EXPECT_EQ(style.GetLines().GetLine(2)->GetLabel(), "Sensor 2: ");
    EXPECT_FALSE(style.GetLines().GetLine(0)->IsSelectable());
    CGenericLine* pFirst = style.GetLines().GetLine(1);

    EXPECT_FALSE(table.Make(style, Temperatures({".1", ".2"})));
    EXPECT_EQ(style.GetLines().GetLine(1), pFirst);  // kept, not made again

    EXPECT_TRUE(table.Make(style, Temperatures({".1", ".2", ".4"})));
    EXPECT_EQ(style.GetLines().GetCount(), 4);
    EXPECT_EQ(style.GetLines().GetLine(3)->GetLabel(), "Sensor 4: ");
    table.Fill(style, Temperatures({".1", ".2", ".4"}), false);
    EXPECT_EQ(style.GetLines().GetLine(3)->GetValue(), "40.50");
}

TEST(LineTableTest, EditableRowsAreBoundToTheCardInstanceAndTextRowsAreNot)
{
    CMenuStyleBasic style;
    CLineTable table(
        {Number("Frequency: ", "dvbs2inConnSatFreq", kCard, 5, 0, 950.0, 2150.0).Unit(" MHz"),
         Text("Level: ", "dvbs2instatusConnLevel", kCard, "%.1f"), Target("Status", "DVB-S2 1 Status")},
        true);
    table.SetCard(".1.2");
    EXPECT_EQ(table.Requests(),
              std::vector<std::string>({"dvbs2inConnSatFreq.1.2", "dvbs2instatusConnLevel.1.2"}));
    table.Make(style, Zor::CParam(Zor::PT_MAP));

    CGenericLine* pFreq = table.Find("dvbs2inConnSatFreq", ".1.2");
    ASSERT_NE(pFreq, nullptr);
    EXPECT_TRUE(pFreq->IsBound());
    EXPECT_EQ(pFreq->GetObjectInstance(), ".1.2");
    CGenericLine* pLevel = table.Find("dvbs2instatusConnLevel", ".1.2");
    ASSERT_NE(pLevel, nullptr);
    EXPECT_FALSE(pLevel->IsBound());
    EXPECT_EQ(style.GetLines().GetTarget(2), "DVB-S2 1 Status");
    EXPECT_EQ(style.GetLines().GetTarget(0), "No Screen");
}
