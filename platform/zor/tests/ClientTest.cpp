#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <fstream>

#include "Controller.h"
#include "EventRecorder.h"
#include "Zor/Zor.h"

namespace {

const std::string kSmallFile = std::string(UNIT_TEST_FILES) + "/small.json";

// Every test of this fixture runs on both links: the unit in-process, and a unitd.
class Client : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        std::string error;
        if (GetParam() == "unix") {
            ASSERT_TRUE(m_unitd.Start(&error)) << error;
        }
        m_strTarget = GetParam() == "unix" ? m_unitd.Target() : "embedded:" + kSmallFile;
    }
    e2e::CUnitServer m_unitd{kSmallFile};
    std::string m_strTarget;
};

Zor::CParam Keys(std::initializer_list<const char*> keys)
{
    Zor::CParam list(Zor::PT_LIST);
    for (const char* k : keys) {
        list.AddParam(Zor::CParam::String(k));
    }
    return list;
}

}  // namespace

TEST_P(Client, ReadsSingleValuesAndPatternsInOidOrder)
{
    Zor::CZorClient client("zor.fp", m_strTarget);
    EXPECT_EQ(client.GetVal("zor.fp", "unitAlias", Zor::COid(".0"), true).Val().ToString(""), "IRD-01");
    EXPECT_EQ(client.GetValue("zor.fp", "tsinputsrcBitRate.1.1").Val().ToInt32(0), 38014946);
    EXPECT_FALSE(client.GetValue("zor.fp", "tsinputsrcBitRate.9").Success());
    EXPECT_FALSE(client.GetValue("zor.fp", "noSuchObject.0").Success());
    EXPECT_FALSE(client.GetValue("zor.fp", "unitAlias").Success());

    Zor::CRet ret =
        client.GetValues("zor.fp", Keys({"tsinputsrcLabel.%", "unitAlias.0", "noSuch.0", "unitAlias.7"}));
    ASSERT_TRUE(ret.Success());
    const Zor::CParam& val = ret.Val();
    EXPECT_EQ(val.Length(), 2);
    ASSERT_EQ(val["tsinputsrcLabel"].Length(), 2);
    EXPECT_EQ(val["tsinputsrcLabel"].GetKey(0), ".1.1");  // the file lists .2.1 first
    EXPECT_EQ(val["tsinputsrcLabel"][".2.1"].ToString(""), "DVB-S2 1");
    EXPECT_EQ(val["unitAlias"].GetKey(0), ".0");

    // A pattern by single-key get gives the instance map.
    EXPECT_EQ(client.GetValue("zor.fp", "tsinputsrcLabel.%").Val().Length(), 2);
    EXPECT_FALSE(client.GetValues("zor.fp", Zor::CParam::Int(3)).Success());
}

TEST_P(Client, SubsystemQueryIsNullWhenNoneOfTheTypesIsFitted)
{
    Zor::CZorClient client("zor.fp", m_strTarget);
    Zor::CRet ret = client.QuerySubsystems("zor.fp", Keys({"T2Mi", "CamSlot"}), Zor::COid(".0"), false);
    ASSERT_TRUE(ret.Success());
    EXPECT_FALSE(ret.Val().KeyExists("T2Mi"));  // listed with no instance: not fitted
    EXPECT_EQ(ret.Val()["CamSlot"].Length(), 2);
    EXPECT_EQ(ret.Val()["CamSlot"][1].ToString(""), ".2");
    EXPECT_TRUE(client.QuerySubsystems("zor.fp", Keys({"Esam"}), Zor::COid(".0"), false).Val().IsNull());
}

TEST_P(Client, WritesConvertCheckAndRefuseWithAMessage)
{
    Zor::CZorClient client("zor.fp", m_strTarget);
    EXPECT_TRUE(client.SendOp("zor.fp", "frontpanelLockMode", ".0", Zor::CParam::String("2")).Success());
    EXPECT_EQ(client.GetValue("zor.fp", "frontpanelLockMode.0").Val(), Zor::CParam::Int(2));
    // The unit's own refusals (checked where the unit is tested) come back word for word.
    EXPECT_EQ(client.SendOp("zor.fp", "frontpanelLockMode", ".0", Zor::CParam::String("7")).Msg(),
              "frontpanelLockMode: 7 is out of range 1..3");
    EXPECT_FALSE(client.SendOp("zor.fp", "frontpanelLockMode", ".0", Zor::CParam::String("two")).Success());
    EXPECT_FALSE(client.SendOp("zor.fp", "unitAlias", ".5", Zor::CParam::String("x")).Success());
    EXPECT_FALSE(client.SendOp("zor.fp", "nope", ".0", Zor::CParam::String("x")).Success());
    EXPECT_TRUE(client.SendOp("zor.fp", "audioLevel", ".1.1", Zor::CParam::String("-3.25")).Success());
    EXPECT_EQ(client.GetValue("zor.fp", "audioLevel.1.1").Val(), Zor::CParam::Double(-3.25));
}

TEST_P(Client, TransactionWithOneBadOperationChangesNothing)
{
    Zor::CZorClient client("zor.fp", m_strTarget);
    CEventRecorder sink;
    client.AddManagedEventHandler("unitAlias", &sink, ".%");
    Zor::CTxn txn;
    txn.AddOp(Zor::COp("unitAlias", ".0", Zor::CParam::String("TXN")));
    txn.AddOp(Zor::COp("frontpanelLockMode", ".0", Zor::CParam::String("9")));
    Zor::CRet ret = client.SendTxn("zor.fp", txn);
    EXPECT_FALSE(ret.Success());
    EXPECT_NE(ret.Msg().find("frontpanelLockMode"), std::string::npos);
    EXPECT_EQ(client.GetValue("zor.fp", "unitAlias.0").Val().ToString(""), "IRD-01");

    Zor::CTxn good;
    good.AddOp(Zor::COp("unitAlias", ".0", Zor::CParam::String("A")));
    good.AddOp(Zor::COp("unitAlias", ".0", Zor::CParam::String("B")));
    EXPECT_TRUE(client.SendTxn("zor.fp", good).Success());
    ASSERT_TRUE(sink.WaitFor(2));
    EXPECT_EQ(sink.Values(), (std::vector<std::string>{"unitAlias.0=A", "unitAlias.0=B"}));
    client.RemoveManagedEventHandler("unitAlias", &sink, ".%");
}

TEST_P(Client, EventsFromAnyClientArriveInWriteOrderOnTheDeliveryThread)
{
    Zor::CZorClient panel("zor.fp", m_strTarget);
    Zor::CZorClient other("zor.web", m_strTarget);  // same file: the same unit
    CEventRecorder all, one, twice;
    ASSERT_TRUE(panel.AddManagedEventHandler("unitAlias", &all, ".%").Success());
    ASSERT_TRUE(panel.AddManagedEventHandler("unitAlias", &twice, ".0").Success());
    ASSERT_TRUE(panel.AddManagedEventHandler("unitAlias", &twice, "0").Success());  // same triple: kept once
    ASSERT_TRUE(panel.AddManagedEventHandler("audioLevel", &one, ".1.1").Success());
    EXPECT_FALSE(panel.AddManagedEventHandler("unitAlias", &all, "bad").Success());

    for (int i = 0; i < 50; ++i) {
        Zor::CZorClient& writer = i % 2 ? other : panel;
        ASSERT_TRUE(writer.SendOp("w", "unitAlias", ".0", Zor::CParam::String(std::to_string(i))).Success());
    }
    ASSERT_TRUE(other.SendOp("w", "unitAlias", ".0", Zor::CParam::String("49")).Success());  // unchanged
    ASSERT_TRUE(all.WaitFor(51));
    ASSERT_TRUE(twice.WaitFor(51));
    const std::vector<std::string> values = all.Values();
    const std::vector<std::thread::id> threads = all.Threads();
    ASSERT_EQ(values.size(), 51u);
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(values[i], "unitAlias.0=" + std::to_string(i));
        EXPECT_NE(threads[i], std::this_thread::get_id());
    }
    EXPECT_EQ(values[50], "unitAlias.0=49");
    EXPECT_EQ(threads[0], threads[50]);
    EXPECT_TRUE(one.Values().empty());
    EXPECT_EQ(twice.Values().size(), 51u);

    EXPECT_TRUE(panel.RemoveManagedEventHandler("unitAlias", &all, "%").Success());
    EXPECT_FALSE(panel.RemoveManagedEventHandler("unitAlias", &all, ".%").Success());
    panel.RemoveManagedEventHandler("unitAlias", &twice, ".0");
    panel.RemoveManagedEventHandler("audioLevel", &one, ".1.1");
}

namespace {

// Unsubscribes itself from inside its own call-back.
class CSelfRemover : public Zor::IManagedEventSink {
public:
    explicit CSelfRemover(Zor::CDataEngine& engine) : m_engine(engine) {}
    void ManagedEvent(const std::string& name, const Zor::COid&, const Zor::CParam&) override
    {
        ++m_calls;
        m_removed = m_engine.RemoveManagedEventHandler(name, this, ".%").Success();
    }
    Zor::CDataEngine& m_engine;
    std::atomic<int> m_calls{0};
    std::atomic<bool> m_removed{false};
};

// Blocks in its call-back until released, like a screen holding its mutex.
class CBlockingSink : public Zor::IManagedEventSink {
public:
    void ManagedEvent(const std::string&, const Zor::COid&, const Zor::CParam&) override
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        ++m_calls;
        m_entered = true;
        m_cv.notify_all();
        m_cv.wait(lock, [this] { return m_release; });
    }
    std::mutex m_mutex;
    std::condition_variable m_cv;
    int m_calls = 0;
    bool m_entered = false;
    bool m_release = false;
};

}  // namespace

TEST_P(Client, UnsubscribingDuringDeliveryNeitherCrashesNorDeadlocks)
{
    Zor::CZorClient client("zor.fp", m_strTarget);
    CSelfRemover self(client);
    CBlockingSink blocking;
    CEventRecorder after;
    client.AddManagedEventHandler("unitAlias", &self, ".%");
    client.AddManagedEventHandler("unitAlias", &blocking, ".%");
    client.AddManagedEventHandler("unitAlias", &after, ".%");

    client.SendOp("zor.fp", "unitAlias", ".0", Zor::CParam::String("one"));
    {
        std::unique_lock<std::mutex> lock(blocking.m_mutex);
        ASSERT_TRUE(
            blocking.m_cv.wait_for(lock, std::chrono::seconds(3), [&] { return blocking.m_entered; }));
        // The sink is inside its call-back now: removal from here must return at once,
        // even while we hold the lock that the call-back waits for.
        EXPECT_TRUE(client.RemoveManagedEventHandler("unitAlias", &blocking, ".%").Success());
        blocking.m_release = true;
        blocking.m_cv.notify_all();
    }
    ASSERT_TRUE(after.WaitFor(1));
    client.SendOp("zor.fp", "unitAlias", ".0", Zor::CParam::String("two"));
    ASSERT_TRUE(after.WaitFor(2));
    EXPECT_EQ(self.m_calls, 1);
    EXPECT_TRUE(self.m_removed);
    std::lock_guard<std::mutex> lock(blocking.m_mutex);
    EXPECT_EQ(blocking.m_calls, 1);
    client.RemoveManagedEventHandler("unitAlias", &after, ".%");
}

TEST(ClientTargets, BadTargetsAndFilesFailWithAMessage)
{
    Zor::CZorClient bad("zor.fp", "serial:/dev/ttyS0");
    Zor::CRet ret = bad.GetValue("zor.fp", "unitAlias.0");
    EXPECT_FALSE(ret.Success());
    EXPECT_NE(ret.Msg().find("serial:/dev/ttyS0"), std::string::npos);

    std::string path = testing::TempDir() + "broken-unit.json";
    std::ofstream(path) << "{\"objects\": {\"x\": {\"type\": \"enum\", \"values\": {\".0\": \"A\"}}}}";
    Zor::CZorClient broken("zor.fp", "embedded:" + path);
    ret = broken.SendOp("zor.fp", "x", ".0", Zor::CParam::String("A"));
    EXPECT_FALSE(ret.Success());
    EXPECT_NE(ret.Msg().find("x: an enum needs \"texts\""), std::string::npos) << ret.Msg();

    Zor::CZorClient missing("zor.fp", "embedded:/nonexistent/unit.json");
    EXPECT_NE(missing.GetValue("zor.fp", "a.0").Msg().find("cannot read"), std::string::npos);
}

TEST(ClientTargets, BuiltInUnitFollowsTheEnvironmentOverride)
{
    std::string path = testing::TempDir() + "env-unit.json";
    std::ofstream(path) << R"({"objects": {"unitAlias": {"type": "string", "values": {".0": "FROM-ENV"}}}})";
    setenv("ZOR_UNIT_FILE", path.c_str(), 1);
    Zor::CZorClient client("zor.fp");  // no options built: embedded
    unsetenv("ZOR_UNIT_FILE");
    EXPECT_EQ(client.GetValue("zor.fp", "unitAlias.0").Val().ToString(""), "FROM-ENV");
}

INSTANTIATE_TEST_SUITE_P(Links, Client, testing::Values("embedded", "unix"));
