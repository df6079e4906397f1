// The declarative rows: shown texts of values, and the lines a table makes.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>

#include "Lines/GenericLine.h"
#include "Lines/LineContainer.h"
#include "ScreenManager/MenuStyleBasic.h"
#include "ScreenManager/MenuStyleLongList.h"
#include "ScreenManager/Rows.h"
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

// values[object][instance] = text, from {object, instance, text} triples.
Zor::CParam Values(std::initializer_list<std::array<const char*, 3>> triples)
{
    Zor::CParam values(Zor::PT_MAP);
    for (const auto& t : triples)
        values[t[0]][t[1]] = Zor::CParam::String(t[2]);
    return values;
}

std::vector<std::string> Shown(CMenuStyleBasic& style)
{
    std::vector<std::string> rows;
    CLineContainer& lines = style.GetLines();
    for (int i = 0; i < lines.GetCount(); ++i)
        rows.push_back(lines.GetLine(i)->GetLabel() + lines.GetLine(i)->GetValue());
    return rows;
}

}  // namespace

TEST(RowsTest, NumbersAreFormattedOnlyThroughOneCheckedConversion)
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

TEST(RowsTest, ShownTextsOfStatusRows)
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

TEST(RowsTest, AnEditableListShowsItsOtherEntryForUnlistedValuesAndWritesNothingForIt)
{
    CRow mode = List("LO Offset Mode: ", "dvbs2inConnLoOffset", ".2.1", {"5150", "9750"}).Unknown("User");
    std::unique_ptr<CGenericLine> pLine(mode.MakeLine(true));
    pLine->SetObjectName("dvbs2inConnLoOffset");  // no instance: a write reports success unsent
    EXPECT_TRUE(pLine->SetValue("9750"));
    EXPECT_EQ(pLine->GetText(), "9750");
    EXPECT_TRUE(pLine->SetValue("10000.5"));
    EXPECT_EQ(pLine->GetText(), "User");
    EXPECT_EQ(pLine->WriteObject(pLine->GetValue()), 0u);
    EXPECT_NE(pLine->WriteObject("5150"), 0u);
}

TEST(LineTableTest, AnEditedAddressRowShowsTheAddressItIsKeyedBy)
{
    CMenuStyleBasic style;
    CLineTable table(
        {Record("igmpRowStatus", ".4.1.1.4."), EditAddress("IP: ", "igmpRowStatus"), EndRecord()}, true);
    Zor::CParam values(Zor::PT_MAP);
    values["igmpRowStatus"][".4.1.1.4.10.50.1.10"] = Zor::CParam::Int(1);
    values["igmpRowStatus"][".4.2.1.4.10.9.9.9"] = Zor::CParam::Int(1);  // another stream's
    table.Make(style, values);
    ASSERT_EQ(style.GetLines().GetCount(), 1);
    CGenericLine* pLine = table.Find("igmpRowStatus", ".4.1.1.4.10.50.1.10");
    ASSERT_NE(pLine, nullptr);
    pLine->RefreshValue();
    EXPECT_EQ(pLine->GetValue(), "10.50.1.10");
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

TEST(LineTableTest, RowsFollowTheValuesTheyDependOn)
{
    CMenuStyleBasic style;
    CLineTable table(
        {
            Target("Lock Front Panel", "Lock").LabelBy("lockMode", ".0", {{"2", "Unlock Front Panel"}}),
            Target("Never", "Never").When(false),
            Text("Primary: ", "primarySrc", ".1").From("srcLabel", "srcId").Unknown("Unknown"),
            Text("C/N: ", "cn", ".1", "%.1f").Instead("lock", ".1", "Unlocked", "--").Unit(" dB"),
            Text("Delay: ", "delay", ".1").ShownWhen("mode", ".1", {"Delay"}),
            Show("Size: ", ".1", {"w", "h"}, [](const CRowValues& v) { return v("w") + "x" + v("h"); }),
            Record("rowStatus", ".1.4.").Empty("<<None>>"),
            Text("IP: ", "address", kEach),
            Command("Remove", "rowStatus", kEach, "6"),
            EndRecord(),
        },
        false);
    Zor::CParam values = Values({{"lockMode", ".0", "1"},
                                 {"srcLabel", ".1", "ASI"},
                                 {"srcId", ".1", "101"},
                                 {"srcLabel", ".2", "IP"},  // no id: cannot be chosen
                                 {"primarySrc", ".1", "101"},
                                 {"cn", ".1", "7.25"},
                                 {"lock", ".1", "Locked"},
                                 {"mode", ".1", "Size"},
                                 {"w", ".1", "1920"},
                                 {"h", ".1", "1080"}});
    EXPECT_EQ(table.Requests(), std::vector<std::string>({"lockMode.0", "primarySrc.1", "srcLabel.%",
                                                          "srcId.%", "cn.1", "lock.1", "delay.1", "mode.1",
                                                          "w.1", "h.1", "rowStatus.%", "address.%"}));
    ASSERT_TRUE(table.Make(style, values));
    table.Fill(style, values, true);
    EXPECT_EQ(Shown(style), std::vector<std::string>({"Lock Front Panel", "Primary: ASI", "C/N: 7.2 dB",
                                                      "Size: 1920x1080", "<<None>>"}));

    values = Values({{"lockMode", ".0", "2"},
                     {"primarySrc", ".1", "999"},
                     {"lock", ".1", "Unlocked"},
                     {"mode", ".1", "Delay"},
                     {"delay", ".1", "40"},
                     {"rowStatus", ".1.4.10.0.0.1", "1"},
                     {"address", ".1.4.10.0.0.1", "10.0.0.1"},
                     {"rowStatus", ".2.4.10.0.0.9", "1"}});  // not under ".1.4."
    EXPECT_TRUE(table.Make(style, values));                  // a record came: the rows are made again
    table.Fill(style, values, false);
    EXPECT_EQ(Shown(style), std::vector<std::string>({"Unlock Front Panel", "Primary: Unknown", "C/N: --",
                                                      "Delay: 40", "Size: x", "IP: 10.0.0.1", "Remove"}));
    CGenericLine* pRemove = style.GetLines().GetLine(6);
    EXPECT_EQ(pRemove->GetObjectName() + pRemove->GetObjectInstance(), "rowStatus.1.4.10.0.0.1");
    EXPECT_FALSE(table.Make(style, values));
}

TEST(RowsTest, ListEntriesFromTheControllerKeepOnlyThoseTheFilterAllows)
{
    CRow format = List("Format: ", "manualFormat", ".1.2", {})
                      .From("formatLabel", "formatId")
                      .FromWhere("formatSecondAvail", "true");
    Zor::CParam values = Values({{"formatLabel", ".1", "1080i 29.97"},
                                 {"formatId", ".1", "1"},
                                 {"formatSecondAvail", ".1", "true"},
                                 {"formatLabel", ".2", "1080p 23.98"},
                                 {"formatId", ".2", "2"},
                                 {"formatSecondAvail", ".2", "false"},
                                 {"formatLabel", ".3", "720p 50"},
                                 {"formatId", ".3", "3"}});  // .3 not said: not offered
    const std::string card, instance(".1.2");
    EXPECT_EQ(format.EntriesFrom(CRowValues(values, card, instance), card),
              (std::vector<std::pair<std::string, std::string>>{{"1080i 29.97", "1"}}));
    const auto reads = format.Reads();  // read for every instance, with the list
    const auto wanted = std::make_pair(std::string("formatSecondAvail"), std::string(kEach));
    EXPECT_NE(std::find(reads.begin(), reads.end(), wanted), reads.end());
}

TEST(RowsTest, ListsNamingARowByItsNumberShowTheRowsTextUnderItsShownName)
{
    CRow source = List("Source: ", "outSource", ".1.1", {})
                      .From("outLabel", kInstanceNumber)
                      .Map({{"Long and Processed", "Short"}})
                      .Unknown("Unknown");
    Zor::CParam values = Values(
        {{"outLabel", ".1", "Active"}, {"outLabel", ".3", "Long and Processed"}, {"outSource", ".1.1", "3"}});
    const std::string card = ".1.1";
    CRowValues v(values, card, card);
    using Entries = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ(source.EntriesFrom(v, card), Entries({{"Active", "1"}, {"Short", "3"}}));
    EXPECT_EQ(source.ShownFor(v), "Short");
    values["outSource"][".1.1"] = Zor::CParam::Int(2);
    EXPECT_EQ(source.ShownFor(v), "Unknown");
    // The row number is the instance itself: nothing more is read for it.
    EXPECT_EQ(source.Reads().size(), 2u);
}

TEST(LineTableTest, ATwoRowListKeepsItsSecondRowBesideItAndIsHiddenWithIt)
{
    CMenuStyleLongList style;
    CLineTable table({List("NTSC Pedestal: ", "pedestal", ".1", {"Black at 7.5 IRE", "Black at 0 IRE"})
                          .TwoRows()
                          .ShownWhen("mode", ".1", {"On"}),
                      OnOff("VITC: ", "vitc", ".1")},
                     true);
    Zor::CParam values(Zor::PT_MAP);
    values["mode"][".1"] = Zor::CParam::String("On");
    ASSERT_TRUE(table.Make(style, values));
    table.Fill(style, values, true);
    CLineContainer& lines = style.GetLines();
    ASSERT_EQ(lines.GetCount(), 3);
    EXPECT_FALSE(lines.GetLine(1)->IsSelectable());
    EXPECT_EQ(lines.GetLine(2)->GetLabel(), "VITC: ");

    values["mode"][".1"] = Zor::CParam::String("Off");
    table.Fill(style, values, false);
    ASSERT_EQ(lines.GetCount(), 1);
    EXPECT_EQ(lines.GetLine(0)->GetLabel(), "VITC: ");
}

TEST(LineTableTest, AddRowOffersEntriesAndRecordsHideTheirEmptyTextByCondition)
{
    CMenuStyleBasic style;
    CLineTable table(
        {
            Record("rowStatus", ".2.").Empty("<<None>>").ShownWhen("mode", ".2.1", {"Rows"}),
            EndRecord(),
            AddRow("Add: ", "rowStatus", "program", ".2").From("name", "number"),
        },
        true);
    Zor::CParam values =
        Values({{"mode", ".2.1", "Rows"}, {"name", ".1.3", "News"}, {"number", ".1.3", "3"}});
    EXPECT_EQ(table.Requests(), std::vector<std::string>({"rowStatus.%", "name.%", "number.%"}));
    ASSERT_TRUE(table.Make(style, values));
    table.Fill(style, values, true);
    ASSERT_EQ(Shown(style).front(), "<<None>>");
    CGenericLine* pAdd = style.GetLines().GetLine(1);
    EXPECT_EQ(pAdd->GetObjectName() + pAdd->GetObjectInstance(), "rowStatus.2");
    ASSERT_TRUE(pAdd->SetValue("3"));  // "News" is offered, exchanged as its number
    EXPECT_EQ(pAdd->GetLabel() + pAdd->GetValue(), "Add: 3");

    values["mode"][".2.1"] = Zor::CParam::String("Off");
    table.Fill(style, values, false);
    EXPECT_EQ(Shown(style), std::vector<std::string>({"Add: 3"}));
}
