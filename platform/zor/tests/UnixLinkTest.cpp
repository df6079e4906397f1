// What only the unitd link has: unreachable controllers, restarts, silent servers.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>

#include "Controller.h"
#include "EventRecorder.h"
#include "UnixSocket.h"
#include "Zor/Zor.h"

namespace {

const std::string kSmallFile = std::string(UNIT_TEST_FILES) + "/small.json";

// Retries a read until it succeeds or the time is up.
bool ReadsWithin(Zor::CZorClient& client, int ms)
{
    auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    while (std::chrono::steady_clock::now() < end) {
        if (client.GetValue("zor.fp", "unitAlias.0").Success()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

}  // namespace

TEST(UnixLink, UnreachableControllerFailsWithAClearMessage)
{
    Zor::CZorClient client("zor.fp", "unix:/nonexistent/unitd.sock");
    Zor::CRet ret = client.GetValue("zor.fp", "unitAlias.0");
    EXPECT_FALSE(ret.Success());
    EXPECT_EQ(ret.Msg(),
              "controller unix:/nonexistent/unitd.sock is not reachable (No such file or directory)");
    CEventRecorder sink;
    EXPECT_TRUE(client.AddManagedEventHandler("unitAlias", &sink, ".%").Success());  // kept for later
}

TEST(UnixLink, ReconnectsToARestartedUnitdAndRestoresSubscriptions)
{
    e2e::CUnitServer unitd(kSmallFile);
    std::string path = unitd.SocketPath(), error;
    ASSERT_TRUE(unitd.Start(&error)) << error;
    Zor::CZorClient client("zor.fp", unitd.Target());
    CEventRecorder sink;
    ASSERT_TRUE(client.AddManagedEventHandler("unitAlias", &sink, ".0").Success());
    ASSERT_TRUE(client.SendOp("zor.fp", "unitAlias", ".0", Zor::CParam::String("before")).Success());
    ASSERT_TRUE(sink.WaitFor(1));

    EXPECT_EQ(unitd.Stop(), 0);
    auto start = std::chrono::steady_clock::now();
    Zor::CRet ret = client.SendOp("zor.fp", "unitAlias", ".0", Zor::CParam::String("meanwhile"));
    EXPECT_FALSE(ret.Success());
    EXPECT_EQ(ret.Msg().find("controller unix:" + path), 0u) << ret.Msg();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));

    ASSERT_TRUE(unitd.Start(&error)) << error;
    ASSERT_TRUE(ReadsWithin(client, 3000));
    // The subscription came back with the connection: a write by someone else reaches us.
    e2e::CLineClient other(path);
    std::string answer =
        other.Ask(R"({"id":1,"op":"set","name":"unitAlias","instance":".0","value":"after"})");
    ASSERT_EQ(answer, R"({"id":1,"ok":true})");
    ASSERT_TRUE(sink.WaitFor(2));
    EXPECT_EQ(sink.Values().back(), "unitAlias.0=after");
    client.RemoveManagedEventHandler("unitAlias", &sink, ".0");
}

// A controller that never answers, or whose backlog is full so that it never even takes
// the connection, costs a client its time-out and no more.
TEST(UnixLink, ASilentOrFullControllerTimesOut)
{
    for (int backlog : {4, 0}) {
        const std::string path = "/tmp/zt-" + std::to_string(getpid()) + "-deaf.sock";
        std::string error;
        const int fd = e2e::ListenUnix(path, backlog, "deaf controller", &error);  // never accepts
        ASSERT_GE(fd, 0) << error;
        sockaddr_un addr;
        ASSERT_TRUE(e2e::UnixAddress(path, &addr));
        std::vector<int> fillers;
        for (int i = 0; backlog == 0 && i < 4; ++i) {
            fillers.push_back(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
            connect(fillers.back(), reinterpret_cast<sockaddr*>(&addr), sizeof addr);
        }
        setenv("ZOR_TIMEOUT_MS", "300", 1);
        const auto start = std::chrono::steady_clock::now();
        {
            Zor::CZorClient client("zor.fp", "unix:" + path);
            Zor::CRet ret = client.GetValue("zor.fp", "unitAlias.0");
            EXPECT_FALSE(ret.Success());
            EXPECT_EQ(ret.Msg().find("controller unix:" + path), 0u) << ret.Msg();
            if (backlog > 0) {
                EXPECT_EQ(ret.Msg(), "controller unix:" + path + " did not answer within 300 ms");
                EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(290));
            }
        }
        unsetenv("ZOR_TIMEOUT_MS");
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2500)) << backlog;
        for (int filler : fillers)
            close(filler);
        close(fd);
        unlink(path.c_str());
    }
}
