// unitd as its clients see it: the real binary on a real socket.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <thread>

#include "Controller.h"

using e2e::CLineClient;

namespace {

class Unitd : public testing::Test {
protected:
    void SetUp() override
    {
        std::string error;
        ASSERT_TRUE(m_unitd.Start(&error)) << error;
    }
    e2e::CUnitServer m_unitd{UNIT_TEST_FILES "/small.json"};
};

}  // namespace

TEST_F(Unitd, EveryBadRequestGetsAMessageAndTheServerKeepsServing)
{
    CLineClient c(m_unitd.SocketPath());
    ASSERT_TRUE(c.Connected());
    const std::pair<std::string, std::string> cases[] = {
        {"not json", R"({"ok":false,"msg":"malformed request: not a JSON object"})"},
        {"[1,2]", R"({"ok":false,"msg":"malformed request: not a JSON object"})"},
        {R"({"id":1})", R"({"id":1,"ok":false,"msg":"malformed request: no \"op\""})"},
        {R"({"id":2,"op":"reboot"})", R"({"id":2,"ok":false,"msg":"unknown op \"reboot\""})"},
        {R"({"id":3,"op":"get","keys":"unitAlias.0"})",
         R"({"id":3,"ok":false,"msg":"get needs \"keys\": a list of texts"})"},
        {R"({"id":4,"op":"set","name":"nope","instance":".0","value":1})",
         R"({"id":4,"ok":false,"msg":"unknown object: nope"})"},
        {R"({"id":5,"op":"set","name":"unitAlias","instance":".0"})",
         R"({"id":5,"ok":false,"msg":"a write needs \"name\", \"instance\" (texts) and \"value\""})"},
        {R"({"id":6,"op":"set","name":"unitAlias","instance":".0","value":[1]})",
         R"({"id":6,"ok":false,"msg":"unitAlias: a value must be a text, number or boolean"})"},
        {R"({"id":7,"op":"set","name":"frontpanelLockMode","instance":".0","value":"x"})",
         R"({"id":7,"ok":false,"msg":"frontpanelLockMode: \"x\" is not an integer"})"},
        {R"({"id":8,"op":"set","name":"unitAlias","instance":".0","value":"ABCDEFGHIJKLMNOPQRSTU"})",
         R"({"id":8,"ok":false,"msg":"unitAlias: value too long"})"},
        {R"({"id":9,"op":"txn","ops":{}})",
         R"({"id":9,"ok":false,"msg":"txn needs \"ops\": a list of writes"})"},
        {R"({"id":10,"op":"txn","ops":[]})", R"({"id":10,"ok":false,"msg":"empty transaction"})"},
        {R"({"id":11,"op":"subscribe"})",
         R"j({"id":11,"ok":false,"msg":"subscribe needs \"name\" (\"*\" for all)"})j"},
        {R"({"id":12,"op":"unsubscribe","name":"unitAlias"})",
         R"({"id":12,"ok":false,"msg":"not subscribed to unitAlias .%"})"},
        {R"({"id":13,"op":"subscribe","name":"unitAlias","instance":"x"})",
         R"({"id":13,"ok":false,"msg":"unitAlias: bad instance \"x\""})"},
        {R"({"id":14,"op":"subsystems","types":[1]})",
         R"({"id":14,"ok":false,"msg":"subsystems needs \"types\": a list of texts"})"},
        {R"({"id":15,"op":"writes","since":-1})",
         R"({"id":15,"ok":false,"msg":"\"since\" must be a sequence number"})"},
        {R"({"id":16,"op":"read","name":"unitAlias","instance":".3"})",
         R"({"id":16,"ok":false,"msg":"unitAlias: no instance \".3\""})"},
        {R"({"id":18,"op":"set","client":7,"name":"unitAlias","instance":".0","value":"x"})",
         R"({"id":18,"ok":false,"msg":"malformed request: \"client\" must be a text"})"},
        {R"({"id":19,"op":"set","force":"yes","name":"unitAlias","instance":".0","value":"x"})",
         R"({"id":19,"ok":false,"msg":"malformed request: \"force\" must be true or false"})"},
        {R"({"id":[[[1]]],"op":"ping"})",
         R"({"ok":false,"msg":"malformed request: \"id\" must be a number or a text"})"},
        {R"({"id":20,"op":"writes","since":4294967296})",
         R"({"id":20,"ok":false,"msg":"\"since\" must be a sequence number"})"},
        {"{\"id\":17,\"op\":\"set\",\"name\":\"unitAlias\",\"instance\":\".0\",\"value\":\"\xff\"}",
         R"({"ok":false,"msg":"malformed request: not a JSON object"})"},
        // A deep value first, then more keys: refused before any parse can recurse per level.
        {"{\"id\":" + std::string(100000, '[') + std::string(100000, ']') + ",\"op\":\"ping\"}",
         R"({"ok":false,"msg":"malformed request: nested too deep"})"},
        {R"({"id":[[1]],"op":"ping","s":"[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[[["})",
         R"({"ok":false,"msg":"malformed request: \"id\" must be a number or a text"})"},
        // Good requests after all that: the server still serves.
        {R"({"id":"x","op":"get","keys":["unitAlias.0","nope.0"]})",
         R"({"id":"x","ok":true,"values":{"unitAlias":{".0":"IRD-01"}}})"},
        {R"({"id":20,"op":"subsystems","types":["Esam"]})", R"({"id":20,"ok":true,"present":{}})"},
        {R"({"id":21,"op":"subsystems"})",
         R"({"id":21,"ok":true,"present":{"Decoder":[".1.2"],"CamSlot":[".1",".2"]}})"},
    };
    for (const auto& c2 : cases) {
        EXPECT_EQ(c.Ask(c2.first, 30000), c2.second) << c2.first.substr(0, 100);
    }
}

TEST_F(Unitd, EventsReachEverySubscribedClientBeforeTheWritersAnswer)
{
    CLineClient writer(m_unitd.SocketPath()), all(m_unitd.SocketPath()), one(m_unitd.SocketPath()),
        none(m_unitd.SocketPath());
    EXPECT_EQ(all.Ask(R"({"id":1,"op":"subscribe","name":"*"})"), R"({"id":1,"ok":true})");
    EXPECT_EQ(one.Ask(R"({"id":1,"op":"subscribe","name":"tsinputsrcBitRate","instance":"2.1"})"),
              R"({"id":1,"ok":true})");
    EXPECT_EQ(writer.Ask(R"({"id":1,"op":"subscribe","name":"unitAlias"})"), R"({"id":1,"ok":true})");

    EXPECT_EQ(
        writer.Ask(R"({"id":2,"op":"set","client":"zorctl","name":"unitAlias","instance":"0","value":"A"})"),
        R"({"id":2,"ok":true})");
    // The writer's own event came before its answer.
    EXPECT_EQ(writer.Events(),
              "{\"event\":\"change\",\"name\":\"unitAlias\",\"instance\":\".0\",\"value\":\"A\"}\n");
    EXPECT_EQ(writer.Ask(R"({"id":3,"op":"set","name":"tsinputsrcBitRate","instance":".2.1","value":"5"})"),
              R"({"id":3,"ok":false,"msg":"tsinputsrcBitRate is read-only"})");
    EXPECT_EQ(
        writer.Ask(
            R"({"id":4,"op":"set","force":true,"name":"tsinputsrcBitRate","instance":".2.1","value":"5"})"),
        R"({"id":4,"ok":true})");
    EXPECT_EQ(writer.Ask(R"({"id":5,"op":"txn","ops":[{"name":"unitAlias","instance":".0","value":"B"},)"
                         R"({"name":"frontpanelLockMode","instance":".0","value":9}]})"),
              R"({"id":5,"ok":false,"msg":"frontpanelLockMode: 9 is out of range 1..3"})");

    std::string expectAll =
        "{\"event\":\"change\",\"name\":\"unitAlias\",\"instance\":\".0\",\"value\":\"A\"}\n"
        "{\"event\":\"change\",\"name\":\"tsinputsrcBitRate\",\"instance\":\".2.1\",\"value\":5}\n";
    EXPECT_EQ(all.Events(300), expectAll);
    EXPECT_EQ(one.Events(300),
              "{\"event\":\"change\",\"name\":\"tsinputsrcBitRate\",\"instance\":\".2.1\",\"value\":5}\n");
    EXPECT_EQ(none.Events(100), "");

    std::string journal = writer.Ask(R"({"id":6,"op":"writes","since":2})");
    EXPECT_NE(journal.find(R"("next":6)"), std::string::npos) << journal;
    EXPECT_EQ(journal.find(R"({"seq":1,)"), std::string::npos) << journal;
    EXPECT_NE(journal.find(R"({"seq":3,"client":"unknown","name":"tsinputsrcBitRate")"), std::string::npos)
        << journal;
}

TEST_F(Unitd, ADepartingClientTakesOnlyItsSubscriptions)
{
    CLineClient stay(m_unitd.SocketPath());
    {
        CLineClient leave(m_unitd.SocketPath());
        EXPECT_EQ(leave.Ask(R"({"id":1,"op":"subscribe","name":"unitAlias"})"), R"({"id":1,"ok":true})");
        leave.Send(R"({"id":2,"op":"get","keys":["unitAlias.0"]})");  // leaves before reading the answer
    }
    EXPECT_EQ(stay.Ask(R"({"id":1,"op":"subscribe","name":"unitAlias","instance":".0"})"),
              R"({"id":1,"ok":true})");
    EXPECT_EQ(stay.Ask(R"({"id":2,"op":"set","name":"unitAlias","instance":".0","value":"Z"})"),
              R"({"id":2,"ok":true})");
    EXPECT_EQ(stay.Events(),
              "{\"event\":\"change\",\"name\":\"unitAlias\",\"instance\":\".0\",\"value\":\"Z\"}\n");
    EXPECT_EQ(stay.Ask(R"({"id":3,"op":"unsubscribe","name":"unitAlias","instance":"0"})"),
              R"({"id":3,"ok":true})");
}

TEST_F(Unitd, ManyClientsAtOnce)
{
    std::vector<std::thread> threads;
    std::atomic<int> good{0};
    for (int t = 0; t < 8; ++t) {
        threads.emplace_back([&, t] {
            CLineClient c(m_unitd.SocketPath());
            for (int i = 0; i < 50; ++i) {
                std::string v = std::to_string(t * 100 + i);
                std::string answer =
                    c.Ask(R"({"id":)" + v + R"(,"op":"set","name":"unitAlias","instance":".0","value":")" +
                          v + "\"}");
                if (answer == R"({"id":)" + v + R"(,"ok":true})") {
                    ++good;
                }
            }
        });
    }
    for (auto& t : threads) {
        t.join();
    }
    EXPECT_EQ(good, 400);
}

TEST(UnitdLife, StopsCleanlyOnSigtermAndRefusesASecondServer)
{
    e2e::CUnitServer first(UNIT_TEST_FILES "/small.json");
    std::string path = first.SocketPath(), error;
    ASSERT_TRUE(first.Start(&error)) << error;
    e2e::CUnitServer second(UNIT_TEST_FILES "/small.json", path);
    second.Start(&error);
    ASSERT_TRUE(second.Process().WaitExit(20000));
    EXPECT_EQ(second.Process().ExitCode(), 1);  // exits at once: the socket is in use
    EXPECT_TRUE(CLineClient(path).Connected());
    EXPECT_EQ(first.Stop(), 0);
    struct stat st;
    EXPECT_NE(stat(path.c_str(), &st), 0);  // socket file removed
}
