#include "Menus/MenuInputDvbS2Settings.h"

#include <functional>

#include "ScreenManager/ScreenNames.h"

using namespace ScreenName;

CRow LoOffsetMode(const char* object, const char* instance)
{
    return List("LO Offset Mode: ", object, instance, {"5150", "9750", "10600", "10750", "11250"}).Unknown("User");
}

namespace {

// Rows of the RF ports' settings, one set per port, each shown while its port is in use.
void PerPort(std::vector<CRow>& rows, const std::string& slot,
             const std::function<std::vector<CRow>(const char* port)>& make)
{
    const std::string receiver = slot + ".1";
    for (int port = 1; port <= kDvbS2RfPorts; ++port) {
        const std::string number = std::to_string(port);
        const std::string instance = slot + "." + number;
        for (CRow& row : make(instance.c_str()))
            rows.push_back(row.ShownWhen("dvbs2instatusActivePort", receiver.c_str(), {number.c_str()}));
    }
}

std::vector<CRow> Lines(int card, const std::string& slot)
{
    // The receiver's own objects are at ".<slot>.1"; its ISI list is ".<slot>.<n>".
    const std::string receiver = slot + ".1";
    const char* const at = receiver.c_str();
    std::vector<CRow> rows = {OnOff("Receive: ", "tsinputsrcState", at)};
    PerPort(rows, slot, [](const char* port) {
        return std::vector<CRow>{
            List("DVB Mode: ", "dvbs2inConnMode", port, {"DVB-S", "DVB-S2", "Auto"}),
            OnOff("Wide Search: ", "dvbs2inConnWideSearchState", port),
            LoOffsetMode("dvbs2inConnLoOffset", port),
            Number("LO Offset: ", "dvbs2inConnLoOffset", port, 7, 1, 0.0, 20000.0).Unit(" MHz"),
            Number("Satellite Freq: ", "dvbs2inConnSatFreq", port, 7, 1, 0.0, 30000.0).Unit(" MHz"),
            List("Symbol Rate Mode: ", "dvbs2inConnSymbolRateMode", port, {"Auto", "Manual"}),
            Number("Symbol Rate: ", "dvbs2inConnSymbolRate", port, 7, 4, 1.0, 45.0)
                .Unit(" MSps")
                .ShownWhen("dvbs2inConnSymbolRateMode", port, {"Manual"}),
            Number("PL Scrambling Code: ", "dvbs2inConnPlsCode", port, 6, 0, 0.0, 262143.0),
            List("LNB Power: ", "dvbs2inConnLnbPower", port, {"13 VDC", "14 VDC", "18 VDC", "19 VDC"}),
        };
    });
    // Multistream belongs to the receiver: the ISI is chosen among those the card found.
    rows.push_back(OnOff("Multistream: ", "dvbs2advfeatureMultiStreamState", at));
    rows.push_back(List("ISI: ", "dvbs2advfeatureISI", at, {})
                       .From("dvbs2isiNumber", nullptr, true)
                       .ShownWhen("dvbs2advfeatureMultiStreamState", at, {"Enabled"}));
    PerPort(rows, slot, [](const char* port) {
        return std::vector<CRow>{OnOff("22 kHz Tone: ", "dvbs2inConn22KHzToneState", port)};
    });
    rows.push_back(Target("Receiver Status", InputsDvbS2Status(card).c_str()));
    return rows;
}

}  // namespace

CMenuInputDvbS2Settings::CMenuInputDvbS2Settings(int card, const std::string& slot)
    : CConfigTableScreen(InputsDvbS2(card) + " Input Config", kInputs, Lines(card, slot))
{
    Table().SetCard(slot);  // the ISI list is the card's: ".<slot>.<n>"
}
