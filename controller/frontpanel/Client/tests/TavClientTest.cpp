// The data client against an in-process virtual unit built for these tests: exact error
// lines, reads and writes by object key, the multi-get shape, subsystem queries and change
// events.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <fstream>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "Client/TavClient.h"

namespace {

// Two inputs, a bounded alias, a read-only status, one present subsystem type.
const char* const kUnit = R"({
  "description": "data client tests",
  "subsystems": {"CamSlot": [".1", ".2"], "TsInputSrc": [".1.1", ".4.2"]},
  "objects": {
    "unitAlias": {"type": "string", "maxlen": 20, "values": {".0": "IRD-01"}},
    "tsinputsrcLabel": {"type": "string", "readonly": true,
                        "values": {".4.2": "IP Stream 2", ".1.1": "ASI"}},
    "avssconfigHdOutputAvail": {"type": "int", "values": {".1.1": 1, ".1.2": 0}},
    "frontpanelLockMode": {"type": "int", "min": 1, "max": 3, "values": {".0": 1}}
  }
})";

class TavClientTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        char path[] = "/tmp/fp-client-unit.XXXXXX";
        int fd = mkstemp(path);
        ASSERT_GE(fd, 0);
        close(fd);
        m_strUnitFile = path;
        std::ofstream(m_strUnitFile) << kUnit;
        m_pZor.reset(new Zor::CZorClient(kZorClientName, "embedded:" + m_strUnitFile));
        m_pClient.reset(new CTavClient(m_pZor.get()));
    }
    void TearDown() override
    {
        m_pClient.reset();
        m_pZor.reset();
        unlink(m_strUnitFile.c_str());
    }

    // What the call printed on stdout.
    template <typename F>
    static std::string Printed(F call)
    {
        testing::internal::CaptureStdout();
        call();
        fflush(stdout);
        return testing::internal::GetCapturedStdout();
    }

    std::string m_strUnitFile;
    std::unique_ptr<Zor::CZorClient> m_pZor;
    std::unique_ptr<CTavClient> m_pClient;
};

TEST_F(TavClientTest, IncompleteKeysPrintTheirErrorLineAndReadNothing)
{
    CTavClient& c = *m_pClient;
    std::string value = "unset";
    EXPECT_EQ(Printed([&] { value = c.GetData("", "0"); }), "GetData Error1: Name: , Instance: 0\n");
    EXPECT_EQ(value, "");
    EXPECT_EQ(Printed([&] { value = c.GetData("unitAlias", ""); }),
              "GetData Error1: Name: unitAlias, Instance: \n");
    EXPECT_EQ(value, "");
    EXPECT_EQ(Printed([&] { value = c.GetData(static_cast<const char*>(nullptr), "0"); }),
              "GetData Error1: Name: , Instance: 0\n");
    EXPECT_EQ(Printed([&] { value = c.GetData(std::string("unitAlias"), std::string()); }),
              "GetData Error2: Name: unitAlias, Instance: \n");
    EXPECT_EQ(value, "");
    EXPECT_EQ(Printed([&] { value = c.GetData(std::string(), std::string(".0")); }),
              "GetData Error2: Name: , Instance: .0\n");
}

TEST_F(TavClientTest, ReadsByNameAndInstanceInEitherForm)
{
    CTavClient& c = *m_pClient;
    std::string printed = Printed([&] {
        EXPECT_EQ(c.GetData("unitAlias", "0"), "IRD-01");
        EXPECT_EQ(c.GetData(std::string("unitAlias"), std::string(".0")), "IRD-01");
        EXPECT_EQ(c.GetData("tsinputsrcLabel", "4.2"), "IP Stream 2");
        EXPECT_EQ(c.GetData("avssconfigHdOutputAvail", ".1.1"), "1") << "numbers read as text";
        EXPECT_EQ(c.GetData("noSuchObject", "0"), "") << "unknown reads as empty";
        EXPECT_EQ(c.GetData("unitAlias", "7"), "");
    });
    EXPECT_EQ(printed, "") << "a failed read prints nothing";

    EXPECT_TRUE(c.HasValue(kZorClientName, "avssconfigHdOutputAvail.1.2"));
    EXPECT_EQ(c.GetValue(kZorClientName, "avssconfigHdOutputAvail.1.2").Val().ToInt32(0), 0);
    EXPECT_FALSE(c.HasValue(kZorClientName, "avssconfigHdOutputAvail.1.3"));
}

TEST_F(TavClientTest, WritesReportTheControllersVerdict)
{
    CTavClient& c = *m_pClient;
    EXPECT_TRUE(c.SendData("unitAlias", "0", "Uplink 2"));
    EXPECT_EQ(c.GetData("unitAlias", "0"), "Uplink 2");
    EXPECT_EQ(c.SendDataMsg("frontpanelLockMode", ".0", "2"), "") << "numbers are written as text";
    EXPECT_EQ(c.GetData("frontpanelLockMode", "0"), "2");

    std::string printed = Printed([&] {
        EXPECT_FALSE(c.SendData("unitAlias", "0", "a name far too long for the field"));
        EXPECT_NE(c.SendDataMsg("frontpanelLockMode", "0", "9"), "");
        EXPECT_NE(c.SendDataMsg("tsinputsrcLabel", "1.1", "X"), "") << "read-only";
        EXPECT_FALSE(c.SendOp(kZorClientName, "noSuchObject", Zor::COid(".0"), "1").Success());
    });
    EXPECT_EQ(printed, "") << "failed writes are reported only through the result";
    EXPECT_EQ(c.GetData("unitAlias", "0"), "Uplink 2");
}

TEST_F(TavClientTest, CheckedSendReportsOnlyAnIncompleteKey)
{
    CTavClient& c = *m_pClient;
    bool ok = false;
    EXPECT_EQ(Printed([&] { ok = c.SendDataChecked("unitAlias", ".0", "Checked"); }), "");
    EXPECT_TRUE(ok);
    EXPECT_EQ(c.GetData("unitAlias", "0"), "Checked");

    EXPECT_EQ(Printed([&] { ok = c.SendDataChecked("frontpanelLockMode", "0", "99"); }), "");
    EXPECT_TRUE(ok) << "true whatever the controller answered";

    EXPECT_EQ(Printed([&] { ok = c.SendDataChecked("unitAlias", "", "X"); }),
              "SendData Error: unitAlias, Instance: \n");
    EXPECT_FALSE(ok);
    EXPECT_EQ(Printed([&] { ok = c.SendDataChecked("", "0", "X"); }), "SendData Error: , Instance: 0\n");
    EXPECT_FALSE(ok);
}

TEST_F(TavClientTest, TransactionAppliesAllOrNothing)
{
    CTavClient& c = *m_pClient;
    Zor::CTxn bad;
    bad.AddOp(Zor::COp("unitAlias", Zor::COid(".0"), Zor::CParam::String("Txn")));
    bad.AddOp(Zor::COp("frontpanelLockMode", Zor::COid(".0"), Zor::CParam::String("9")));
    Zor::CRet r = c.SendTxn(kZorClientName, bad);
    EXPECT_FALSE(r.Success());
    EXPECT_NE(r.Msg(), "");
    EXPECT_EQ(c.GetData("unitAlias", "0"), "IRD-01");

    Zor::CTxn good;
    good.AddOp(Zor::COp("unitAlias", Zor::COid(".0"), Zor::CParam::String("Txn")));
    good.AddOp(Zor::COp("frontpanelLockMode", Zor::COid(".0"), Zor::CParam::String("3")));
    EXPECT_TRUE(c.SendTxn(kZorClientName, good).Success());
    EXPECT_EQ(c.GetData("unitAlias", "0"), "Txn");
    EXPECT_EQ(c.GetData("frontpanelLockMode", "0"), "3");
}

TEST_F(TavClientTest, MultiGetMapsNamesToInstancesInOidOrder)
{
    Zor::CParam keys(Zor::PT_LIST);
    keys.AddParam(Zor::CParam::String("tsinputsrcLabel.%"));
    keys.AddParam(Zor::CParam::String("unitAlias.0"));
    keys.AddParam(Zor::CParam::String("noSuchObject.0"));
    Zor::CRet r = m_pClient->GetValues(kZorClientName, keys);
    ASSERT_TRUE(r.Success()) << r.Msg();
    const Zor::CParam& v = r.Val();

    EXPECT_EQ(v["tsinputsrcLabel"].Length(), 2) << "one entry per input";
    EXPECT_EQ(v["tsinputsrcLabel"].GetKey(0), ".1.1");
    EXPECT_EQ(v["tsinputsrcLabel"].GetKey(1), ".4.2");
    EXPECT_EQ(v["tsinputsrcLabel"][".4.2"].ToString(""), "IP Stream 2");
    EXPECT_EQ(v["unitAlias"][".0"].ToString(""), "IRD-01");
    EXPECT_FALSE(v.KeyExists("noSuchObject"));
}

TEST_F(TavClientTest, SubsystemQueryIsNullForAnAbsentType)
{
    EXPECT_TRUE(m_pClient->QuerySubsystem("Esam").IsNull());
    Zor::CParam slots = m_pClient->QuerySubsystem("CamSlot");
    ASSERT_FALSE(slots.IsNull());
    EXPECT_EQ(slots["CamSlot"].Length(), 2);
    EXPECT_EQ(slots["CamSlot"][1].ToString(""), ".2");
}

// Collects change events from the SDK's delivery thread.
class CSink : public Zor::IManagedEventSink {
public:
    void ManagedEvent(const std::string& name, const Zor::COid& instance, const Zor::CParam& value) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_events.push_back(name + instance.OidStr() + "=" + value.ToString(""));
        m_cond.notify_all();
    }
    // Waits until `count` events have come.
    std::vector<std::string> WaitFor(size_t count)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_cond.wait_for(lock, std::chrono::seconds(10), [&] { return m_events.size() >= count; });
        return m_events;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cond;
    std::vector<std::string> m_events;
};

TEST_F(TavClientTest, SubscribedSinkSeesEveryWriteUntilRemoved)
{
    CTavClient& c = *m_pClient;
    CSink sink;
    ASSERT_TRUE(c.AddEventHandler("unitAlias", &sink, ".%").Success());
    ASSERT_TRUE(c.SendData("unitAlias", "0", "One"));
    ASSERT_TRUE(c.SendData("unitAlias", "0", "One"));
    EXPECT_EQ(sink.WaitFor(2), (std::vector<std::string>{"unitAlias.0=One", "unitAlias.0=One"}))
        << "unchanged values are announced too";

    ASSERT_TRUE(c.RemoveEventHandler("unitAlias", &sink, ".%").Success());
    ASSERT_TRUE(c.SendData("unitAlias", "0", "Two"));
    // A marker write on a still-subscribed sink proves the later delivery has happened.
    CSink marker;
    ASSERT_TRUE(c.AddEventHandler("unitAlias", &marker, ".0").Success());
    ASSERT_TRUE(c.SendData("unitAlias", "0", "Three"));
    marker.WaitFor(1);
    EXPECT_EQ(sink.WaitFor(2).size(), 2u);
    c.RemoveEventHandler("unitAlias", &marker, ".0");
}

}  // namespace
