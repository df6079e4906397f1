#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

#include "Unit/VirtualUnit.h"

using Unit::CVirtualUnit;
using Zor::COid;
using Zor::CParam;

namespace {

// Records the unit's changes "name.inst=value" and lets a test wait for one.
class CChangeLog {
public:
    explicit CChangeLog(const std::shared_ptr<CVirtualUnit>& unit) : m_pUnit(unit)
    {
        m_id = unit->AddListener([this](const Unit::Change_t& c) {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_log.push_back(c.name + c.instance.OidStr() + "=" + c.value.ToString(""));
            m_cv.notify_all();
        });
    }
    ~CChangeLog() { m_pUnit->RemoveListener(m_id); }

    bool WaitFor(const std::string& entry, int ms = 3000)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_cv.wait_for(lock, std::chrono::milliseconds(ms),
                             [&] { return std::find(m_log.begin(), m_log.end(), entry) != m_log.end(); });
    }
    std::vector<std::string> Log()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_log;
    }

private:
    std::shared_ptr<CVirtualUnit> m_pUnit;
    int m_id;
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<std::string> m_log;
};

std::shared_ptr<CVirtualUnit> FromText(const std::string& text)
{
    std::string error;
    auto unit = CVirtualUnit::FromText(text, error);
    EXPECT_TRUE(unit) << error;
    return unit;
}

std::shared_ptr<CVirtualUnit> Load(const std::string& file = UNIT_TEST_FILES "/small.json")
{
    std::string error;
    auto unit = CVirtualUnit::LoadFile(file, error);
    EXPECT_TRUE(unit) << error;
    return unit;
}

Zor::CRet Write(CVirtualUnit& unit, const char* name, const char* inst, const std::string& value)
{
    return unit.Set("zor.fp", Unit::Write_t{name, inst, CParam::String(value)}, false);
}

// The value as text; "?" when there is none.
std::string Value(CVirtualUnit& unit, const char* name, const char* inst = ".0")
{
    return unit.GetOne(name, COid(inst)).Val().ToString("?");
}

std::vector<std::string> Profiles(CVirtualUnit& unit)
{
    std::vector<std::string> names;
    CParam list = unit.Get({"profilelistName.%"})["profilelistName"];
    for (int i = 0; i < list.Length(); ++i) {
        names.push_back(list.GetKey(i) + "=" + list[list.GetKey(i)].ToString(""));
    }
    return names;
}

}  // namespace

TEST(Behaviours, ProfilesAreCreatedRenamedAndDeletedWithRefusals)
{
    auto unit = Load();
    EXPECT_TRUE(Write(*unit, "profileCreateProfile", ".0", "Sports").Success());
    EXPECT_EQ(Write(*unit, "profileCreateProfile", ".0", "Sports").Msg(), "Profile already exists: Sports");
    EXPECT_EQ(Write(*unit, "profileCreateProfile", ".0", "").Msg(), "Invalid profile name: \"\"");
    EXPECT_EQ(Write(*unit, "profileCreateProfile", ".0", "a/b").Msg(), "Invalid profile name: \"a/b\"");
    EXPECT_EQ(Profiles(*unit), (std::vector<std::string>{".1=Default", ".2=Sports"}));

    EXPECT_EQ(Write(*unit, "profileRenameProfile", ".0", "Sports").Msg(), "Rename needs old name,new name");
    EXPECT_EQ(Write(*unit, "profileRenameProfile", ".0", "Nope,X").Msg(), "No such profile: Nope");
    EXPECT_EQ(Write(*unit, "profileRenameProfile", ".0", "Sports,Default").Msg(),
              "Profile already exists: Default");
    EXPECT_EQ(Write(*unit, "profileRenameProfile", ".0", "Sports,*bad*").Msg(),
              "Invalid profile name: \"*bad*\"");
    EXPECT_TRUE(
        Write(*unit, "profileRenameProfile", ".0", "Sports.pfl,News").Success());  // extension optional
    EXPECT_EQ(Profiles(*unit), (std::vector<std::string>{".1=Default", ".2=News"}));

    EXPECT_EQ(Write(*unit, "profileDeleteProfile", ".0", "Sports").Msg(), "No such profile: Sports");
    EXPECT_TRUE(Write(*unit, "profileDeleteProfile", ".0", "Default").Success());
    EXPECT_EQ(Profiles(*unit), (std::vector<std::string>{".2=News"}));
    EXPECT_TRUE(Write(*unit, "profileCreateProfile", ".0", "Late").Success());
    EXPECT_EQ(Profiles(*unit), (std::vector<std::string>{".2=News", ".3=Late"}));
}

TEST(Behaviours, ProfileApplyRunsItsStateSequence)
{
    auto unit = Load();
    CChangeLog log(unit);
    EXPECT_EQ(Write(*unit, "profileApplyProfile", ".0", "Nope").Msg(), "No such profile: Nope");
    ASSERT_TRUE(Write(*unit, "profileApplyProfile", ".0", "Default").Success());
    EXPECT_EQ(Write(*unit, "profileApplyProfile", ".0", "Default").Msg(), "A profile is being applied");
    ASSERT_TRUE(log.WaitFor("profileApplyProfileState.0=4"));
    std::vector<std::string> states;
    for (const auto& e : log.Log()) {
        if (e.compare(0, 24, "profileApplyProfileState") == 0 ||
            e.compare(0, 25, "profileLastAppliedProfile") == 0) {
            states.push_back(e);
        }
    }
    EXPECT_EQ(states,
              (std::vector<std::string>{"profileApplyProfileState.0=0", "profileApplyProfileState.0=2",
                                        "profileApplyProfileState.0=3", "profileLastAppliedProfile.0=Default",
                                        "profileApplyProfileState.0=4"}));
    EXPECT_TRUE(Write(*unit, "profileApplyProfile", ".0", "Default").Success());  // free again
}

// An update runs through its stages to the completion code the behaviour settings give (1
// unless set; a value no int can hold is unset); the settings changed at run time steer the
// next update.
TEST(Behaviours, UpdateStartRunsTheUpdateToTheSetCompletion)
{
    auto unit = Load();
    std::string error;
    EXPECT_FALSE(unit->SetBehaviour("updateCompletionCode", Zor::Json("2"), error));
    ASSERT_TRUE(unit->SetBehaviour("updateStepMs", Zor::Json(50), error)) << error;
    ASSERT_TRUE(unit->SetBehaviour("updateCompletionCode", Zor::Json(1e300), error)) << error;
    {
        CChangeLog log(unit);
        ASSERT_TRUE(Write(*unit, "updateStart", ".0", "0").Success());
        EXPECT_EQ(Value(*unit, "updateStage"), "0");  // "0" starts nothing
        ASSERT_TRUE(Write(*unit, "updateStart", ".0", "1").Success());
        // Stage 1 is there at once: the panel reads it right after the event.
        EXPECT_EQ(Value(*unit, "updateStage"), "1");
        EXPECT_EQ(Write(*unit, "updateStart", ".0", "1").Msg(), "An update is in progress");
        ASSERT_TRUE(log.WaitFor("updateStage.0=3"));
        EXPECT_TRUE(log.WaitFor("updateStart.0=0"));
        EXPECT_EQ(Value(*unit, "updateCompletionCode"), "1");
        EXPECT_TRUE(log.WaitFor("updateProgress.0=100"));
        EXPECT_TRUE(log.WaitFor("updateStage.0=2"));
    }
    ASSERT_TRUE(unit->SetBehaviour("updateCompletionCode", Zor::Json(2), error));
    EXPECT_EQ(unit->GetBehaviour("updateCompletionCode"), Zor::Json(2));
    CChangeLog log(unit);
    ASSERT_TRUE(Write(*unit, "updateStart", ".0", "1").Success());
    ASSERT_TRUE(log.WaitFor("updateStart.0=0"));
    EXPECT_EQ(Value(*unit, "updateCompletionCode"), "2");
}

TEST(Behaviours, RowsAreCreatedAndDestroyedAcrossTheirTable)
{
    auto unit = Load();
    EXPECT_TRUE(Write(*unit, "alarmlogRowStatus", ".2", "4").Success());
    EXPECT_EQ(Value(*unit, "alarmlogRowStatus", ".2"), "1");  // active
    EXPECT_EQ(Value(*unit, "alarmlogText", ".2"), "");
    EXPECT_FALSE(Write(*unit, "alarmlogRowStatus", ".2", "4").Success());
    EXPECT_FALSE(Write(*unit, "alarmlogText", ".3", "x").Success());  // no row .3
    EXPECT_TRUE(Write(*unit, "alarmlogRowStatus", ".1", "6").Success());
    EXPECT_FALSE(unit->GetOne("alarmlogText", COid(".1")).Success());
    EXPECT_EQ(unit->Get({"alarmlogText.%"})["alarmlogText"].Length(), 1);

    // Created and filled in one transaction: the row holds the written value, not the default.
    ASSERT_TRUE(unit->Transaction("zor.fp",
                                  {{"alarmlogRowStatus", ".3", CParam::String("4")},
                                   {"alarmlogText", ".3", CParam::String("Fan")}},
                                  false)
                    .Success());
    EXPECT_EQ(Value(*unit, "alarmlogText", ".3"), "Fan");
    EXPECT_EQ(Value(*unit, "alarmlogRowStatus", ".3"), "1");
}

TEST(Behaviours, RowsKeyedByAnAddressHoldIt)
{
    auto unit = Load();
    const struct {
        const char* status;
        const char* row;
        const char* column;
        const char* address;
    } rows[] = {{"syslogreceiverRowStatus", ".1.4.10.20.0.16", "syslogreceiverIpAddress", "10.20.0.16"},
                {"syslogreceiverRowStatus", ".1.4.0.0.0.255", "syslogreceiverIpAddress", "0.0.0.255"},
                {"mpegipigmpRowStatus", ".2.1.1.4.10.50.1.12", "mpegipigmpAddr", "10.50.1.12"}};
    for (const auto& r : rows) {
        ASSERT_TRUE(Write(*unit, r.status, r.row, "5").Success()) << r.row;
        EXPECT_EQ(Value(*unit, r.column, r.row), r.address);
        EXPECT_EQ(Value(*unit, r.status, r.row), "2");
    }
    EXPECT_EQ(Value(*unit, "syslogreceiverPort", ".1.4.10.20.0.16"), "1");
    for (const char* row : {".1.4.10.20.0.256", ".1.4.300.1.1.1", ".1.6.10.20.0.1", ".4.10.20.0.1"}) {
        EXPECT_EQ(Write(*unit, "syslogreceiverRowStatus", row, "4").Msg(),
                  std::string("syslogreceiverRowStatus: row ") + row +
                      " does not end in an IPv4 address (1.4.a.b.c.d, each 0 to 255)");
    }
}

TEST(Behaviours, NetworkApplyIsBusyThenAppliesTheStagedSettings)
{
    auto unit = Load();
    CChangeLog log(unit);
    ASSERT_TRUE(Write(*unit, "tcpipNewIpAddress", ".0", "10.0.0.9").Success());
    ASSERT_TRUE(Write(*unit, "tcpipApplyNew", ".0", "true").Success());
    EXPECT_EQ(Value(*unit, "tcpipApplyNew"), "true");
    EXPECT_EQ(Value(*unit, "tcpipIpAddress"), "10.0.0.2");
    EXPECT_EQ(Write(*unit, "tcpipNewIpAddress", ".0", "10.0.0.7").Msg(),
              "tcpipNewIpAddress: the network settings are being applied");
    EXPECT_FALSE(Write(*unit, "tcpipApplyNew", ".0", "true").Success());
    ASSERT_TRUE(log.WaitFor("tcpipApplyNew.0=false"));
    // The new address is there before the flag falls; the unchanged netmask is not announced.
    EXPECT_EQ(log.Log(), (std::vector<std::string>{"tcpipNewIpAddress.0=10.0.0.9", "tcpipApplyNew.0=true",
                                                   "tcpipIpAddress.0=10.0.0.9", "tcpipApplyNew.0=false"}));

    // At once, with settings staged in the same transaction.
    std::string error;
    ASSERT_TRUE(unit->SetBehaviour("networkApplyMs", Zor::Json(0), error)) << error;
    ASSERT_TRUE(unit->Transaction("zor.fp",
                                  {{"tcpipNewIpAddress", ".0", CParam::String("10.0.0.7")},
                                   {"tcpipApplyNew", ".0", CParam::String("1")}},
                                  false)
                    .Success());
    EXPECT_EQ(Value(*unit, "tcpipIpAddress"), "10.0.0.7");
    EXPECT_EQ(Value(*unit, "tcpipApplyNew"), "false");
}

TEST(Behaviours, LockStatusCountersAndReboot)
{
    auto unit = Load();
    CChangeLog log(unit);
    // The reported lock status follows every accepted write of the mode, and only those.
    ASSERT_TRUE(Write(*unit, "frontpanelLockMode", ".0", "3").Success());
    EXPECT_EQ(Value(*unit, "frontpanelLockStatus"), "3");
    EXPECT_FALSE(Write(*unit, "frontpanelLockMode", ".0", "4").Success());
    EXPECT_EQ(Value(*unit, "frontpanelLockStatus"), "3");
    ASSERT_TRUE(Write(*unit, "frontpanelLockMode", ".0", "3").Success());
    EXPECT_EQ(log.Log().back(), "frontpanelLockStatus.0=3") << "announced even when unchanged";

    ASSERT_TRUE(Write(*unit, "tsinputsrcResetCounters", ".2.1", "1").Success());
    EXPECT_EQ(Value(*unit, "tsinputsrcErrorCount", ".2.1"), "0");
    EXPECT_EQ(Value(*unit, "tsinputsrcErrorCount", ".1.1"), "17");

    ASSERT_TRUE(Write(*unit, "unitReboot", ".0", "1").Success());
    EXPECT_EQ(Value(*unit, "systemState"), "0");
    EXPECT_TRUE(log.WaitFor("systemState.0=1"));
}

TEST(Behaviours, SystemStateBecomesReadyAfterTheConfiguredTime)
{
    auto unit = FromText(R"({"behaviours": {"systemStateReadyAfterMs": 100},
        "objects": {"systemState": {"type": "int", "readonly": true, "values": {".0": 3}}}})");
    ASSERT_TRUE(unit);
    CChangeLog log(unit);
    EXPECT_EQ(Value(*unit, "systemState"), "0");
    EXPECT_TRUE(log.WaitFor("systemState.0=3"));
}

// The clock shows the unit's own time in the configured format, unless set by hand in
// manual mode: then it ticks on from there.
TEST(Behaviours, ClockTicksInTheConfiguredFormatAndIsSetByHandOnlyInManualMode)
{
    auto unit = FromText(R"({"behaviours": {"datetimeFormat": "%m/%d/%Y %H:%M:%S"},
        "objects": {"datetimeNow": {"type": "string", "values": {".0": "01/01/2000 00:00:00"}},
                    "datetimeUpdateMode": {"type": "enum", "texts": ["Manual", "NTP"], "values": {".0": "NTP"}}}})");
    ASSERT_TRUE(unit);
    const std::string first = Value(*unit, "datetimeNow");
    ASSERT_EQ(first.size(), 19u);
    EXPECT_EQ(first[2], '/');
    EXPECT_NE(first, "01/01/2000 00:00:00");
    EXPECT_EQ(Write(*unit, "datetimeNow", ".0", "02/28/2027 23:59:59").Msg(),
              "datetimeNow: the clock is set by NTP (datetimeUpdateMode); set the mode to Manual first");
    CChangeLog log(unit);
    // The mode written first in the same transaction counts.
    ASSERT_TRUE(unit->Transaction("zor.fp",
                                  {{"datetimeUpdateMode", ".0", CParam::String("Manual")},
                                   {"datetimeNow", ".0", CParam::String("02/28/2027 23:59:59")}},
                                  false)
                    .Success());
    EXPECT_EQ(Value(*unit, "datetimeNow"), "02/28/2027 23:59:59");
    EXPECT_TRUE(log.WaitFor("datetimeNow.0=03/01/2027 00:00:00", 1500));
    for (const char* bad : {"02/29/2027 10:00:00", "13/01/2027 10:00:00", "1/02/2027 10:00:00",
                            "01/02/2027 24:00:00", "01/02/2027 10:00", "01/02/2027 10:00:00 ", ""}) {
        EXPECT_EQ(Write(*unit, "datetimeNow", ".0", bad).Msg(),
                  std::string("datetimeNow: \"") + bad + "\" is not a date and time as MM/DD/YYYY hh:mm:ss");
    }
    // Back under NTP the unit's own time returns at once.
    ASSERT_TRUE(Write(*unit, "datetimeUpdateMode", ".0", "NTP").Success());
    EXPECT_NE(Value(*unit, "datetimeNow").substr(0, 10), "03/01/2027");
}

TEST(Behaviours, TheDecoderFollowsTheServiceSelection)
{
    auto unit = Load(SHIPPED_UNITS "/full.json");
    // By number: service 2 brings its video PID, its two audio PIDs and its SCTE-35 PID.
    ASSERT_TRUE(Write(*unit, "servicelockServiceNum", ".1.1", "2").Success());
    EXPECT_EQ(Value(*unit, "selectedserviceServiceName", ".1.1"), "Sport Live HD");
    EXPECT_EQ(Value(*unit, "selectedserviceVideoPid", ".1.1"), "512");
    EXPECT_EQ(Value(*unit, "selectedaudioPid", ".1.2"), "514");
    EXPECT_EQ(Value(*unit, "selectedaudioType", ".1.2"), "AAC ADTS");
    EXPECT_EQ(Value(*unit, "selectedaudioType", ".1.3"), "None");
    EXPECT_EQ(Value(*unit, "selectedscte35Pid", ".1.1"), "520");
    // By name, a radio service: no video, one audio, no splice PID.
    ASSERT_TRUE(Write(*unit, "servicelockServiceName", ".1.1", "Radio One").Success());
    EXPECT_EQ(Value(*unit, "selectedserviceServiceNum", ".1.1"), "2") << "the lock is by number";
    ASSERT_TRUE(Write(*unit, "servicelockLockMode", ".1.1", "Service Name").Success());
    EXPECT_EQ(Value(*unit, "selectedserviceServiceNum", ".1.1"), "4");
    EXPECT_EQ(Value(*unit, "selectedserviceVideoPid", ".1.1"), "0");
    EXPECT_EQ(Value(*unit, "selectedaudioType", ".1.1"), "AAC LOAS");
    EXPECT_EQ(Value(*unit, "selectedscte35Pid", ".1.1"), "0");
    // Auto seek keeps the service being decoded.
    ASSERT_TRUE(Write(*unit, "serviceselectionMode", ".1.1", "Auto Seek").Success());
    ASSERT_TRUE(Write(*unit, "servicelockServiceName", ".1.1", "News 24 HD").Success());
    EXPECT_EQ(Value(*unit, "selectedserviceServiceNum", ".1.1"), "4");
}

TEST(Behaviours, SelectedPidsFollowTheirServiceOutOfAndIntoTheStream)
{
    auto unit = Load(SHIPPED_UNITS "/full.json");
    ASSERT_EQ(Value(*unit, "camselectedpidPresence", ".2.1"), "Present");  // service 3
    ASSERT_TRUE(unit->Set("zor.fp", {"siserviceRowStatus", ".1.3", CParam::String("6")}, true).Success());
    EXPECT_EQ(Value(*unit, "camselectedpidPresence", ".2.1"), "Not Present");
    EXPECT_EQ(Value(*unit, "camselectedpidPresence", ".2.2"), "Not Present");
    EXPECT_FALSE(unit->GetOne("siserviceName", COid(".1.3")).Success());
    ASSERT_TRUE(unit->Set("zor.fp", {"siserviceRowStatus", ".1.3", CParam::String("4")}, true).Success());
    EXPECT_EQ(Value(*unit, "camselectedpidPresence", ".2.1"), "Present");
    EXPECT_EQ(Value(*unit, "camselectedpidPresence", ".2.3"),
              "Not Present");  // no associated service: untouched
}

TEST(Behaviours, BissKeyWordsAreTakenOnlyWhole)
{
    auto unit = Load(SHIPPED_UNITS "/full.json");
    EXPECT_TRUE(Write(*unit, "bissserviceMode1SessionWord", ".1.2", "0123456789AB").Success());
    for (const char* bad : {"0123456789A", "0123456789ABC", "0123456789AG", ""}) {
        Zor::CRet ret = Write(*unit, "bissserviceMode1SessionWord", ".1.2", bad);
        EXPECT_FALSE(ret.Success()) << bad;
        EXPECT_NE(ret.Msg().find("bissserviceMode1SessionWord"), std::string::npos) << ret.Msg();
    }
    EXPECT_FALSE(Write(*unit, "bissserviceModeEInjectedId", ".1.2", "0123456789ABCDEF").Success());
    EXPECT_EQ(Value(*unit, "bissserviceMode1SessionWord", ".1.2"), "0123456789AB");
}
