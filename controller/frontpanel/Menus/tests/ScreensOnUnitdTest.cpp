// The screen tree as start-up builds it, on the panel and a real unitd, driven by a table of
// scenarios. Each scenario starts a fresh unitd and runs its steps in order.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <thread>

#include "TreeOnUnitd.h"

namespace {

// A step: what it does, the keys it then presses (as PressKeys takes them: "E11RUE"), every
// write the panel makes meanwhile ("name.instance=value", in order; "... refused" when the
// unit refused it; '?' for any character) and what is expected afterwards. Lists are
// separated by "; ".
//   what: names of screens to show, and writes of another manager ("name.instance=value";
//         with a leading '*' forced, as the hardware reports; the value is JSON when it reads
//         as JSON, else a text), in order.
//   expected: a text shown anywhere, "!text" not shown, "=text" a whole row, "panel:name" the
//         golden panel, "on:name" the screen on view, "while:" before any of these: shown while
//         the keys are still being pressed (a message held for a moment), "takes:ms" the keys
//         take as long.
struct Step {
    const char* what;
    const char* keys;
    const char* writes;
    const char* expected;
};

struct Scenario {
    const char* name;
    const char* unit;
    std::vector<Step> steps;
};

const Scenario kScenarios[] = {
    {"Inputs",
     "full.json",
     {
         // Inputs are offered by label and written by id, in the order the unit lists them.
         {"Input Select Config", "EUE", "inputPrimarySrc.1.1=301", "Primary: DVB-S2 Slot 3"},
         {"", "2DEUE", "inputFailoverTrigger.1.1=Decode Failure", ""},
         // A number typed over its leading zeros ("005").
         {"", "2DEUE", "inputSwitchOverInterval.1.1=105", "Switchover: 105 Sec"},
         // A usual local oscillator is written as the port's offset; "User" writes nothing.
         {"DVB-S2 1", "3DEUE", "dvbs2inConnLoOffset.2.1=10750", ""},
         {"", "EUUE", "", ">LO Offset Mode: 10750"},
         // The ISI is offered once multistream is on, among the ISIs this card found.
         {"", "7DEUED", "dvbs2advfeatureMultiStreamState.2.1=Enabled", ">ISI: 0"},
         {"", "EUUE", "dvbs2advfeatureISI.2.1=4", ""},
         // An address, and the SSRC in eight hexadecimal digits.
         {"MPEG/IP 1-2", "3DE11RUE", "mpegiprcvDestinationIp.4.2=239.10.20.3", ""},
         {"", "6D", "", ">SSRC: 1A2B3C4D"},
         {"", "E7RUE", "mpegiprcvSsrcFilterValue.4.2=1A2B3C4E", ""},
         // 0.0.0.1 is no source: said so, nothing written.
         {"IGMP 1-2 Config", "DE11RUE", "",
          "<<No Addresses>>; while:You are trying to enter an; while:invalid IGMP address."},
         // 100.0.0.0 is made; changed to 100.0.0.1 it is made again under its new address.
         {"", "EUE", "mpegipigmpRowStatus.4.2.1.4.100.0.0.0=4", "IP: 100.0.0.0"},
         {"", "UE11RUE", "mpegipigmpRowStatus.4.2.1.4.100.0.0.1=4; mpegipigmpRowStatus.4.2.1.4.100.0.0.0=6",
          "IP: 100.0.0.1; !IP: 100.0.0.0"},
         // The report is asked for; "Clear All" destroys every row of this stream, no other.
         {"IGMP 1-1 Config; IGMP 1-2 Config", "UE", "mpegiprcvSendIgmpReport.4.2=true", ""},
         {"", "UE", "mpegipigmpRowStatus.4.2.1.4.100.0.0.1=6", "<<No Addresses>>"},
         // Without lock the signal measures are dashes, as soon as the receiver says so.
         {"DVB-S2 1 Status", "U", "", "C/N: 9.8 dB; PER: 1.2E-08"},
         {"*dvbs2instatusConnRcvLock.2.1=Unlocked", "", "", "Signal Quality Metric: --; Error Rate: --"},
         {"*dvbs2instatusConnRcvLock.2.1=Locked", "", "", "C/N: 9.8 dB"},
         // Twelve digits pass, thirteen are clipped; eight on the 8VSB/QAM pages.
         {"MPEG/IP 2-1 Status", "2U", "", " Corr Packets: >999999999999"},
         {"*mpegiprcvFecCorrectedCount.5.1=999999999999", "", "", " Corr Packets: 999999999999"},
         {"8VSB/QAM 2 Status", "U", "", "Corr FEC Errors: >99999999"},
         {"8VSB/QAM 2", "UE", "vsbinFecErrorsReset.7.1=true", ""},
         {"8VSB/QAM 2 Status", "U", "", "Corr FEC Errors: 0"},
         // The switch-over entry follows the input in use.
         {"Input Settings", "U", "", ">Switch to Backup Input"},
         {"*inputInputActive.1.1=Backup", "", "", ">Switch to Primary Input"},
         {"", "E", "inputManualSwitchover.1.1=true", ""},
         // The settings page shows the tuning of the port in use.
         {"DVB-S2 1 Select Port", "DE", "dvbs2instatusActivePort.2.1=2",
          "Port 2 (Selected); !Port 1 (Selected)"},
         {"DVB-S2 1", "", "", "LO Offset Mode: 9750"},
     }},
    {"Decoding",
     "full.json",
     {
         // A PID is typed in hexadecimal and written as the number the controller keeps.
         {"Primary Service PID Lock", "EUE", "pidlockPcrPid.1.1=4352", ">PCR PID: 1100"},
         // A choice; the rows it rules come and go with the user's own edit.
         {"Source ID Config", "EUE", "ancoptSourceIdLookupMode.1.1=Manual", "Manual ID: NEWS24"},
         // A text, a number with its unit, a hexadecimal identifier.
         {"", "DEUE", "ancoptSourceIdManualSourceId.1.1=OEWS24", ""},
         {"", "EUX", "", "Manual ID: OEWS24"},  // EXIT abandons the edit and writes nothing
         {"General Configuration", "EUE", "scte35srvHeartbeatTimeout.1.1=15", "Heartbeat Timeout: 15 min"},
         {"Trigger 2", "3DEUE", "dpicueEventId.2.1=5000002A", ""},
         {"Timecode Configuration", "EUX", "", ""},  // a list's too
                                                     // A long list scrolls to its last line and back.
         {"ANC Status", "13D", "", ">Time Code: Present; !AFD:"},
         {"", "13U", "", ">AFD: Code 10"},
         // The second output offers only the formats it can put out: six, 1080p 23.98 not.
         {"Sec. Video Settings", "DEUU", "", "1080i 29.97"},
         {"", "4U", "", "525i 29.97"},
         {"", "X", "", ""},
         {"Service Select Status; servicelockServiceNum.1.1=2", "", "", "Service: 2; Name: Sport Live HD"},
         {"Audio", "", "", "Audio 1 Type: Dolby Digital"},
         {"", "7D", "", "Audio 2 Type: AAC ADTS"},
         {"SCTE35 Status", "", "", "PID 1: 0208"},
         // The video page: the new service's PID and type while on view; a frame rate the
         // decoder cannot name.
         {"Video; servicelockServiceNum.1.1=3", "", "", "Video PID: 0300; Video Type: MPEG-2"},
         {"*videoFrameRate.1.1=48 fps", "4D", "", ">Frame Rate: -- fps"},
     }},
    {"Outputs",
     "full.json",
     {
         // A choice among the audio services, on the port's own instance.
         {"Digital Audio", "2DEUE", "aesaudioPort.1.3=Audio 3 PCM", "Port 3: Audio 3 PCM"},
         // A line number on the secondary path; it is offered only while its data type is on.
         {"Sec. HD ANC Output Settings", "DEUE", "hdsdiCcCea708Line.1.2=19", "Line Number: 19"},
         {"", "UEUE", "hdsdiCcCea708State.1.2=Disabled", "!Line Number: 19; RDD11: Disabled"},
         // A level with its decimal, on the analogue output's instance.
         {"Analog 4 Settings", "DERUE", "analogaudioOutputLevel.1.4=19.0", "Output Level: 19.0 dBu"},
         // The output source is chosen by label (past "Unknown", which writes nothing) and
         // written as its row number.
         {"ASI Output Settings", "DEUUE", "tsoutputsrcSource.1.1=1", "Source: Active Input"},
         // The status page follows the hardware while on view.
         {"MPEG/IP 1 Output Status; *tsoutputsrcSource.4.1=3", "", "", "Source: Descramble & Process"},
         {"", "12D", "", "Unicast MAC Status: Found"},
         {"*mpegiptxUnicastReceiverNotFound.4.1=Not Found", "", "", "Unicast MAC Status: Not Found"},
         // The FEC matrix is offered only while FEC is on.
         {"MPEG/IP 1 Output Cfg", "10D", "", ">FEC Columns: 10"},
         {"", "UEUE", "mpegiptxfecState.4.1=Disabled", "!FEC Columns:; !FEC Rows:"},
     }},
    {"Admin",
     "full.json",
     {
         // The last line, and the lock entry named after the mode.
         {"Admin", "UEUE", "unitUidLed.0=Enabled", "Enable UID: Enabled"},
         {"Home; frontpanelLockMode.0=2", "", "", ""},
         {"Admin", "6U", "", "Unlock Front Panel"},
         // A value the unit refuses is not kept, and the panel says why for a moment.
         {"Home; frontpanelLockMode.0=1; tcpipApplyNew.0=true", "", "", ""},
         {"Configure Network", "DEUE", "tcpipNewIpMode.0=Enabled refused",
          "DHCP: Disabled; while:the network settings are being"},
         // Setting the clock by hand offers the date and time rows, after the user's own edit.
         {"Configure Date/Time", "EUE", "datetimeUpdateMode.0=Manual", "Set Date:"},
         // A date that is not real (month 21) is refused and writes nothing; one that is is
         // written with the clock's time as it is then (set by hand, so the day is known).
         {"datetimeNow.0=11/22/2026 09:30:00", "2DEUE", "", "Set Date: 11/22/2026"},
         {"", "E7RUE", "datetimeNow.0=11/22/2027 ??:??:??", ""},
         // Syslog receivers are added by address (the last digit of 000.000.000.000 made 1)
         // and come first, in address order, the selection staying on the add row; the new
         // receiver's "Remove" takes it away again.
         {"Syslog Configuration", "UE11RUE", "syslogreceiverRowStatus.1.4.0.0.0.1=4",
          "Add Receiver: 0.0.0.0"},
         {"", "5D", "", "IP: 0.0.0.1; >Remove"},
         {"", "E", "syslogreceiverRowStatus.1.4.0.0.0.1=6", "!IP: 0.0.0.1"},
     }},
    {"AdminStagedNetworkAndReset",
     "full.json",
     {
         // Staged network edits are discarded on EXIT, or applied together.
         {"Configure Network", "DEUE", "tcpipNewIpMode.0=Enabled", ""},
         {"", "X", "tcpipNewIpMode.0=Disabled", "on:Unit Networking"},
         {"Configure Network", "DEUEUUE", "tcpipNewIpMode.0=Enabled; tcpipApplyNew.0=true",
          "Gateway: 10.20.4.1 (Busy)"},
         {"", "", "", "!(Busy)"},
         {"", "X", "", ""},
         // Resetting all settings asks first: "No" is offered first and changes nothing.
         {"Admin", "3UE", "", "on:Reset All Settings"},
         {"", "E", "", "on:Admin"},
         {"Reset All Settings", "LE", "utilityResetSettings.0=true; utilityRebootUnit.0=true", ""},
     }},
    {"ConditionalAccess",
     "full.json",
     {
         // The key rows follow the mode; a session word is written once.
         {"BISS Config", "2DEUE", "bissserviceBissMode.1.1=Mode 1",
          "Sess Word: 000000000000; !Session Word:; !Injected ID:"},
         {"", "DEURUUE", "bissserviceMode1SessionWord.1.1=120000000000", "Sess Word: 120000000000"},
         // Back to Mode E while on the page: its rows return with the key words kept.
         {"", "UEUE", "bissserviceBissMode.1.1=Mode E", "Session Word:A1B2C3D4E5F60718; !Sess Word:"},
         // The top slot's module takes several services: Srv 1, Srv 2 and Srv 7 (not
         // received). Srv 7 out, the third received one in: nothing is written until saved.
         {"DVB-CI(Top) Config Srvs", "2DEEUUUE", "", "Srv 3 Weather Channel"},
         {"", "X", "", "panel:dvbci_save_question"},
         {"", "RE", "", "on:DVB-CI(Top)"},
         // The same again, saved ("Yes"): the row that goes and the new one, in one go.
         {"DVB-CI(Top) Config Srvs", "", "", "Srv 7 (Not Present)"},
         {"", "2DEEUUUEXE",
          "camselectedserviceRowStatus.1.3=6; camselectedserviceRowStatus.1.4=4; "
          "camselectedserviceProgramNumber.1.4=3",
          "on:DVB-CI(Top)"},
         {"DVB-CI(Top) Status", "4D", "", "Srv 3 Weather Channel; !Srv 7"},
         // Leaving without changes asks nothing.
         {"DVB-CI(Top) Config Srvs", "X", "", "on:DVB-CI(Top)"},
         // BISS services are added as new rows (past "None" to the second service).
         {"BISS Add Services", "UEUUE",
          "bissselectedserviceRowStatus.1.3=4; bissselectedserviceService.1.3=2", ""},
         {"BISS Selected Services Status", "4D", "", "Srv 2 Sport Live HD"},
         // The bottom slot's module takes one service: chosen and removed at once.
         {"DVB-CI(Btm) Config Srvs", "", "", "Select Service: None"},
         {"", "EUE", "camselectedserviceRowStatus.2.1=4; camselectedserviceProgramNumber.2.1=1",
          "Srv 1 News 24 HD; !Select Service:"},
         {"", "DE", "camselectedserviceRowStatus.2.1=6", "Select Service: "},
         // PIDs typed in hexadecimal join their service, or none, and are saved together.
         {"DVB-CI(Top) Config PIDs", "", "", ">Add PID: 0000"},
         {"", "ER3UE", "", "Srv 3:;  0x0300 MPEG-2"},                  // the video of service 3
         {"DVB-CI(Top) Config PIDs Save", "X", "", " 0x0300 MPEG-2"},  // back, the change kept
         {"", "DER5UR13UR12UE", "", "No Associated Service:"},         // 0x05DC: no service's
         {"", "XE",
          "camselectedpidRowStatus.1.1=4; camselectedpidProgramNumber.1.1=3; camselectedpidPid.1.1=768; "
          "camselectedpidRowStatus.1.2=4; camselectedpidProgramNumber.1.2=65535; camselectedpidPid.1.2=1500",
          ""},
         // Selected PIDs show their service, and the stream stays live on view.
         {"DVB-CI(Btm) Status", "7D", "", "No Associated Service:; 0x05DC (Not Present)"},
         {"DVB-CI(Btm) Status; *siserviceRowStatus.1.3=6", "", "", "0x0300 (Not Present)"},
     }},
    {"HomePageAndStatusPages",
     "full.json",
     {
         // The home page follows the unit: names cut at the row's end, the service number
         // for a service without a name, an input by its label without the part from "Slot"
         // on, and its rate.
         {"Home; *unitAlias.0=Studio B", "", "", "Studio B"},
         {"*selectedserviceServiceName.1.1=A Service Name Of Exactly Forty Letters.", "", "",
          "=Service: A Service Name Of Exa"},
         {"*selectedserviceServiceName.1.1=", "", "", "=Service: Service 1"},
         {"*selectedserviceServiceNum.1.1=0", "", "", "!Service:"},
         {"*inputCurrentActiveInputId.1.1=401", "", "", "=Bitrate: 15.000 Mbps; =Input: MPEG/IP Stream 1"},
         {"*inputCurrentActiveInputId.1.1=999", "", "", "=Bitrate: 0.000 Mbps; =Input: Unknown"},
         {"*inputCurrentActiveInputId.1.1=801", "", "", "=Bitrate: 46.532 Mbps; =Input: Turbo PSK"},
         {"*inputCurrentActiveInputId.1.1=301", "", "", "=Bitrate: 0.000 Mbps; =Input: DVB-S2"},
         // Every alarm cleared: the list says so on the next entry.
         {"*alarmState.1=1; *alarmState.2=1; *alarmState.3=1; *alarmState.8=1; Active Errors", "", "",
          "panel:active_errors_none"},
         // Status pages show forced values on view, each sensor on its own row, and a value
         // that changed off view on the next entry.
         {"Voltage Levels; *sensor12V.0=11.5", "", "", "12V: 11.50; 5V: 5.02"},
         {"Unit Temperature; *tempReading.3=61.5; *sensor5V.0=4.75", "", "",
          "Sensor 3: 61.50; Sensor 2: 47.25"},
         {"Voltage Levels", "", "", "5V: 4.75"},
     }},
    {"LockModes",
     "full.json",
     {
         // Locked: the arrows, the menus reachable, EXIT stays on the home page.
         {"frontpanelLockMode.0=2; Home Main; Home", "X", "", "@|; on:Home"},
         {"", "L", "", "on:Home Main"},
         // Disabled: no arrows, the disabled glyph, and no key leaves the home page.
         {"frontpanelLockMode.0=3; Home", "", "", "panel:home_panel_disabled"},
         {"", "L", "", "on:Home"},
         {"", "U", "", "on:Home"},
         {"", "R", "", "on:Home"},
         {"", "D", "", "on:Home"},
         {"", "X", "", "on:Home"},
         {"", "E", "", "on:Home"},
     }},
    {"PanelLockAndPasswords",
     "minimal.json",
     {
         // A first password of two characters is refused; three are taken. (Typing a digit d
         // is d + 1 UPs: "E2UR3UE" types "12".)
         {"Lock/Unlock Front Panel", "E2UR3UE", "",
          "while:Password is too short.; while:panel:lock_message_too_short"},
         {"", "E2UR3UR4UE", "frontpanelPassword.0=123",
          "while:Set Panel Password Success; panel:lock_mode_choice"},
         // "None" writes nothing; "Lock Panel" locks, its message up for the whole pause, and
         // settings cannot be edited then.
         {"", "EE", "", ""},
         {"", "EUE", "frontpanelLockMode.0=2", "while:Panel Locked; takes:1500; Unlock Panel"},
         {"Configure Network", "DEUE", "", "|#"},
         // A wrong password, shorter or of the same length, changes nothing; the right one
         // unlocks.
         {"Lock/Unlock Front Panel", "E2UE", "", "while:Invalid Password"},
         {"", "E2UR3UR5UE", "", "while:Invalid Password; while:Please try again."},
         {"", "E2UR3UR4UE", "frontpanelLockMode.0=1", "while:Panel Unlocked"},
         // Disabled: the home page keeps ENTER; EXIT from the lock screen goes home.
         {"", "EUUE", "frontpanelLockMode.0=3", "while:Panel Disabled"},
         {"Home", "E", "", "on:Home"},
         {"Lock/Unlock Front Panel", "X", "", "on:Home"},
         // Unlocked, the home page drops the disabled glyph for its arrows; the password is
         // changed: a wrong old one, a new one too short, then done.
         {"Lock/Unlock Front Panel", "E2UR3UR4UE", "frontpanelLockMode.0=1", ""},
         {"Home", "", "", "!|!; ~$@|"},
         {"Lock/Unlock Front Panel", "DE", "", "on:Change Panel Password"},
         {"", "E10UR10UR10UE D E5UR6UR7UE", "", "while:Invalid Password"},
         {"", "U E2UR3UR4UE D E5UR6UE", "", "while:Password is too short."},
         {"", "E5UR6UR7UE", "frontpanelPassword.0=456",
          "while:Password Changed; while:Successfully.; Lock Panel; on:Lock/Unlock Front Panel"},
         // Leaving the change screen writes nothing.
         {"", "DE E8UR9UR10UE X", "", "on:Lock/Unlock Front Panel"},
     }},
    {"OneCardUnits",
     "minimal.json",
     {
         // The cards are found in the slots the unit reports (which screens exist is in the
         // screen atlas): the receive card and the transmit card in slot 2.
         {"MPEG/IP 1-1", "EUE", "tsinputsrcState.2.1=Disabled", "on:MPEG/IP 1-1"},
         {"DVB-S2 1", "", "", "on:MPEG/IP 1-1"},  // no such card
         {"MPEG/IP 1 Output Cfg", "EUE", "tsoutputsrcState.2.1=Enabled", ""},
         // Without a decoder there is no decoding or processing screen.
         {"Decoding; Processing; Audio; Video; Service Select Settings; Audio Processing; Video Settings; "
          "Genlock Config; SCTE35 Configuration; Source ID",
          "", "", "on:MPEG/IP 1 Output Cfg"},
     }},
};

std::vector<std::string> Split(const std::string& list)
{
    std::vector<std::string> items;
    for (size_t at = 0; at < list.size();) {
        const size_t end = std::min(list.find("; ", at), list.size());
        items.push_back(list.substr(at, end - at));
        at = end + 2;
    }
    return items;
}

void PrintTo(const Scenario& scenario, std::ostream* out)
{
    *out << scenario.name;
}

class ScreensOnUnitdTest : public MenusTest::CTreeOnUnitd, public ::testing::WithParamInterface<Scenario> {
protected:
    void MakeWrite(const std::string& write)
    {
        const bool forced = write[0] == '*';
        const size_t dot = write.find('.'), equals = write.find('=');
        const std::string text = write.substr(equals + 1);
        nlohmann::json value = nlohmann::json::parse(text, nullptr, false);
        if (value.is_discarded() || text.empty())
            value = text;
        Set(write.substr(forced, dot - forced), write.substr(dot, equals - dot), value, forced);
    }
    std::string PanelWritesSince(int since)
    {
        std::string writes;
        const nlohmann::json journal = m_pUnitd->Writes(since);
        for (const auto& write : journal["writes"])
            if (write.value("client", "") == "zor.fp")
                writes +=
                    (writes.empty() ? "" : "; ") + write["name"].get<std::string>() +
                    write["instance"].get<std::string>() + "=" +
                    (write["value"].is_string() ? write["value"].get<std::string>() : write["value"].dump()) +
                    (write.value("ok", false) ? "" : " refused");
        return writes;
    }
    // The panel comes to show every text: "text" anywhere, "!text" nowhere, "=text" as a row
    // (30 cells between bars), "panel:name" the whole golden panel. The golden is part of the
    // wait: a slow build can be caught between the rows of one redraw.
    void ExpectPanel(const std::vector<std::string>& items)
    {
        const char* update = std::getenv("FP_UPDATE_GOLDEN");
        const bool updating = update != nullptr && std::strcmp(update, "1") == 0;
        std::map<std::string, std::string> goldens;
        for (const std::string& item : items)
            if (item.compare(0, 6, "panel:") == 0) {
                std::ifstream in(PanelTest::GoldenPath(item.substr(6)), std::ios::binary);
                goldens[item] = std::string(std::istreambuf_iterator<char>(in), {});
            }
        EXPECT_TRUE(PanelBecomes(
            [&](const std::string& panel) {
                return std::all_of(items.begin(), items.end(), [&](const std::string& text) {
                    if (text[0] == '!')
                        return panel.find(text.substr(1)) == std::string::npos;
                    if (text[0] == '=')
                        return panel.find("|" + text.substr(1) + std::string(31 - text.size(), ' ') + "|") !=
                               std::string::npos;
                    if (text.compare(0, 6, "panel:") == 0)
                        return updating || panel == goldens[text];
                    return panel.find(text) != std::string::npos;
                });
            },
            ::testing::PrintToString(items)));
        for (const std::string& item : items) {
            if (item.compare(0, 6, "panel:") == 0) {
                EXPECT_PANEL(item.substr(6));
            }
        }
    }
};

TEST_P(ScreensOnUnitdTest, EachStepWritesAndShowsWhatItShould)
{
    ASSERT_NO_FATAL_FAILURE(Start(GetParam().unit));
    int number = 0;
    for (const Step& step : GetParam().steps) {
        SCOPED_TRACE("step " + std::to_string(++number) + ": \"" + step.what + "\" " + step.keys);
        for (const std::string& what : Split(step.what))
            what.find('=') == std::string::npos ? Show(what) : MakeWrite(what);
        std::map<std::string, std::vector<std::string>> expected;  // by kind: "" for texts
        for (const std::string& item : Split(step.expected)) {
            std::string kind;
            for (const char* prefix : {"while:", "takes:", "on:"})
                if (item.compare(0, std::strlen(prefix), prefix) == 0)
                    kind = prefix;
            expected[kind].push_back(item.substr(kind.size()));
        }
        const int since = m_pUnitd->NextWrite();
        const auto start = std::chrono::steady_clock::now();
        std::thread keys([&] { PressKeys(step.keys); });
        ExpectPanel(expected["while:"]);
        keys.join();
        for (const std::string& ms : expected["takes:"])
            EXPECT_GE(std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                            start)
                          .count(),
                      std::stoi(ms));
        std::string writes = PanelWritesSince(since);
        for (size_t i = 0; i < writes.size() && i < std::strlen(step.writes); ++i)
            writes[i] = step.writes[i] == '?' ? '?' : writes[i];  // any character there
        EXPECT_EQ(writes, step.writes);
        ExpectPanel(expected[""]);
        for (const std::string& current : expected["on:"])
            EXPECT_EQ(Current(), current);
        if (HasFailure())
            return;  // the steps after build on this one
    }
}

INSTANTIATE_TEST_SUITE_P(Tree, ScreensOnUnitdTest, ::testing::ValuesIn(kScenarios),
                         [](const ::testing::TestParamInfo<Scenario>& info) {
                             return std::string(info.param.name);
                         });

}  // namespace
