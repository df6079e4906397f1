// The data client's writes as the controller records them.
#include "Client/TavClient.h"
#include "E2eTest.h"

namespace e2e {
namespace {

class ClientJournalTest : public CE2eTest {};

// A key without name or instance is still sent: the controller refuses it and its journal
// shows the attempt.
TEST_F(ClientJournalTest, CheckedSendStillSendsAnIncompleteKey)
{
    CUnitServer& unit = StartUnit();
    Zor::CZorClient zor(kZorClientName, "unix:" + unit.SocketPath());
    CTavClient client(&zor);

    testing::internal::CaptureStdout();
    EXPECT_FALSE(client.SendDataChecked("unitAlias", "", "Incomplete"));
    EXPECT_TRUE(client.SendDataChecked("unitAlias", ".0", "Complete"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "SendData Error: unitAlias, Instance: \n");

    nlohmann::json writes = unit.Writes(0);
    ASSERT_TRUE(writes.value("ok", false)) << writes.dump();
    std::vector<std::string> seen;
    for (const auto& w : writes["writes"]) {
        if (w.value("client", "") == kZorClientName)
            seen.push_back(w.value("name", "") + "|" + w.value("instance", "") + "|" + w["value"].dump() +
                           "|" + (w.value("ok", false) ? "ok" : "refused"));
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"unitAlias||\"Incomplete\"|refused",
                                              "unitAlias|.0|\"Complete\"|ok"}));
}

}  // namespace
}  // namespace e2e
