// The local stream socket against a listening socket that plays the peer.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <atomic>
#include <cstring>
#include <memory>
#include <thread>

#include "Qb/Socket.h"
#include "TestSupport.h"

using namespace Qb;
using QbTest::ElapsedMs;
using QbTest::WaitFor;
typedef std::chrono::steady_clock Clock;

namespace {

// A listening peer on a path; destroying it is the peer going away.
class Peer {
public:
    explicit Peer(const std::string& path) : m_path(path), m_listen(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        sockaddr_un addr;
        std::memset(&addr, 0, sizeof addr);
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, path.c_str(), sizeof addr.sun_path - 1);
        unlink(path.c_str());
        EXPECT_EQ(0, bind(m_listen, reinterpret_cast<sockaddr*>(&addr), sizeof addr));
        EXPECT_EQ(0, listen(m_listen, 4));
    }
    ~Peer()
    {
        if (conn >= 0)
            close(conn);
        close(m_listen);
        unlink(m_path.c_str());
    }
    bool Accept() { return (conn = accept(m_listen, nullptr, nullptr)) >= 0; }
    int conn = -1;

private:
    std::string m_path;
    int m_listen;
};

}  // namespace

TEST(QbSocket, ReadTimesOutWithoutLosingTheConnection)
{
    QbTest::ScratchDir dir;
    Peer peer(dir.File("s"));
    CStreamSocket sock(CLocalSocketAddress(dir.File("s")));
    ASSERT_TRUE(sock.IsConnected());
    ASSERT_TRUE(peer.Accept());

    char buf[16];
    const auto start = Clock::now();
    EXPECT_EQ(0, sock.Read(buf, sizeof buf, 100));
    EXPECT_GE(ElapsedMs(start), 95);
    EXPECT_TRUE(sock.IsConnected());  // a time-out is not the end of the stream
    ASSERT_EQ(2, write(peer.conn, "xy", 2));
    EXPECT_EQ(2, sock.Read(buf, sizeof buf, 1000));
}

TEST(QbSocket, AbsentPeerMakesReadsWaitAndRetryUntilItAppears)
{
    QbTest::ScratchDir dir;
    const std::string path = dir.File("s");
    CStreamSocket sock{CLocalSocketAddress(path)};
    EXPECT_FALSE(sock.IsConnected());
    char c = 0;
    const auto start = Clock::now();
    EXPECT_LT(sock.Read(&c, 1, 150), 0);
    EXPECT_GE(ElapsedMs(start), 145);  // waited, so a reader loop cannot spin
    EXPECT_LT(sock.Write("a", 1), 0);

    Peer peer(path);
    std::thread server([&] {
        if (peer.Accept())
            (void)write(peer.conn, "k", 1);
    });
    EXPECT_EQ(1, sock.Read(&c, 1, 5000));  // one read spans the retry
    EXPECT_EQ('k', c);
    server.join();
}

TEST(QbSocket, ReconnectsAtMostOnceASecondAfterThePeerRestarts)
{
    QbTest::ScratchDir dir;
    const std::string path = dir.File("s");
    auto peer = std::make_unique<Peer>(path);
    const auto attempted = Clock::now();  // the last connection attempt is no earlier
    CStreamSocket sock{CLocalSocketAddress(path)};
    ASSERT_TRUE(peer->Accept());

    peer.reset();  // the peer goes away: end of stream, then writes into nothing
    char buf[8];
    EXPECT_LT(sock.Read(buf, sizeof buf, 1000), 0);
    EXPECT_FALSE(sock.IsConnected());
    EXPECT_LT(sock.Write("lost", 4), 0);  // no SIGPIPE, or this test would die here

    peer = std::make_unique<Peer>(path);
    if (ElapsedMs(attempted) < 900) {
        EXPECT_LT(sock.Write("early", 5), 0);  // too soon after the last attempt
    }
    ASSERT_TRUE(WaitFor([&] { return sock.Write("hello", 5) == 5; }, 5000));
    EXPECT_GE(ElapsedMs(attempted), 995);  // both clocks round down to milliseconds
    ASSERT_TRUE(peer->Accept());
    ASSERT_EQ(5, read(peer->conn, buf, sizeof buf));
    EXPECT_EQ(0, std::memcmp(buf, "hello", 5));
}

TEST(QbSocket, ConcurrentReadAndWriteAndCloseWakesTheReader)
{
    QbTest::ScratchDir dir;
    Peer peer(dir.File("s"));
    CStreamSocket sock(CLocalSocketAddress(dir.File("s")));
    ASSERT_TRUE(peer.Accept());
    std::thread echo([&] {
        char b[64];
        ssize_t n;
        while ((n = read(peer.conn, b, sizeof b)) > 0)
            (void)write(peer.conn, b, static_cast<size_t>(n));
    });
    const int total = 2000;
    std::atomic<int> got(0);
    std::atomic<bool> woken(false);
    std::thread reader([&] {
        char b[64];
        int n;
        while (got < total && (n = sock.Read(b, sizeof b, 2000)) > 0)
            got += n;
        woken = sock.Read(b, sizeof b, -1) < 0;  // waits until Close() below
    });
    for (int i = 0; i < total / 4; ++i) {
        if (sock.Write("ping", 4) != 4) {
            ADD_FAILURE() << "write " << i;
            break;
        }
    }
    EXPECT_TRUE(WaitFor([&] { return got == total; }));
    sock.Close();
    reader.join();
    EXPECT_TRUE(woken);
    shutdown(peer.conn, SHUT_RDWR);
    echo.join();
    EXPECT_LT(sock.Write("x", 1), 0);
}
