// The local stream socket against a listening socket that plays the peer.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <cstring>
#include <thread>

#include "Qb/Socket.h"
#include "TestSupport.h"

using namespace Qb;
using QbTest::ElapsedMs;
using QbTest::WaitFor;
typedef std::chrono::steady_clock Clock;

namespace {

// A listening peer that can go away and come back on the same path.
class Peer {
public:
    explicit Peer(const std::string& path) : m_path(path) { Listen(); }
    ~Peer() { Stop(); }
    void Listen()
    {
        unlink(m_path.c_str());
        m_listen = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un addr;
        std::memset(&addr, 0, sizeof addr);
        addr.sun_family = AF_UNIX;
        std::strncpy(addr.sun_path, m_path.c_str(), sizeof addr.sun_path - 1);
        ASSERT_EQ(0, bind(m_listen, reinterpret_cast<sockaddr*>(&addr), sizeof addr));
        ASSERT_EQ(0, listen(m_listen, 4));
    }
    int Accept()
    {
        m_conn = accept(m_listen, nullptr, nullptr);
        return m_conn;
    }
    void Stop()
    {
        if (m_conn >= 0)
            close(m_conn);
        if (m_listen >= 0) {
            close(m_listen);
            unlink(m_path.c_str());
        }
        m_conn = m_listen = -1;
    }
    int Conn() const { return m_conn; }

private:
    std::string m_path;
    int m_listen = -1;
    int m_conn = -1;
};

}  // namespace

TEST(QbSocket, ReadTimesOutWithoutLosingTheConnection)
{
    QbTest::ScratchDir dir;
    Peer peer(dir.File("s"));
    CStreamSocket sock(CLocalSocketAddress(dir.File("s")));
    ASSERT_TRUE(sock.IsConnected());
    ASSERT_GE(peer.Accept(), 0);

    char buf[16];
    const auto start = Clock::now();
    EXPECT_EQ(0, sock.Read(buf, sizeof buf, 100));
    EXPECT_GE(ElapsedMs(start), 95);
    EXPECT_TRUE(sock.IsConnected());  // a time-out is not the end of the stream

    EXPECT_EQ(3, sock.Write("abc", 3));
    ASSERT_EQ(3, read(peer.Conn(), buf, sizeof buf));
    ASSERT_EQ(2, write(peer.Conn(), "xy", 2));
    EXPECT_EQ(2, sock.Read(buf, sizeof buf, 1000));
    EXPECT_EQ(0, std::memcmp(buf, "xy", 2));
}

TEST(QbSocket, AbsentPeerMakesCallsFailWithoutSpinning)
{
    QbTest::ScratchDir dir;
    CStreamSocket sock(CLocalSocketAddress(dir.File("s")));
    EXPECT_FALSE(sock.IsConnected());
    char buf[4];
    const auto start = Clock::now();
    EXPECT_LT(sock.Read(buf, sizeof buf, 150), 0);
    EXPECT_GE(ElapsedMs(start), 145);  // waited, so a reader loop cannot spin
    EXPECT_LT(sock.Write("a", 1), 0);
}

TEST(QbSocket, ReconnectsAtMostOnceASecondAfterThePeerRestarts)
{
    QbTest::ScratchDir dir;
    const std::string path = dir.File("s");
    auto peer = std::make_unique<Peer>(path);
    const auto attempted = Clock::now();  // the last connection attempt is no earlier
    CStreamSocket sock{CLocalSocketAddress(path)};
    ASSERT_GE(peer->Accept(), 0);

    peer->Stop();  // the peer goes away: end of stream, then writes into nothing
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
    ASSERT_GE(peer->Accept(), 0);
    ASSERT_EQ(5, read(peer->Conn(), buf, sizeof buf));
    EXPECT_EQ(0, std::memcmp(buf, "hello", 5));
}

TEST(QbSocket, ReaderWaitingForThePeerConnectsWhenItAppears)
{
    QbTest::ScratchDir dir;
    const std::string path = dir.File("s");
    CStreamSocket sock{CLocalSocketAddress(path)};
    ASSERT_FALSE(sock.IsConnected());
    Peer peer(path);
    std::thread server([&] {
        if (peer.Accept() >= 0)
            (void)write(peer.Conn(), "k", 1);
    });
    char c = 0;
    EXPECT_EQ(1, sock.Read(&c, 1, 5000));  // one read spans the retry
    EXPECT_EQ('k', c);
    server.join();
}

TEST(QbSocket, ConcurrentReadAndWriteAndCloseWakesTheReader)
{
    QbTest::ScratchDir dir;
    Peer peer(dir.File("s"));
    CStreamSocket sock(CLocalSocketAddress(dir.File("s")));
    ASSERT_GE(peer.Accept(), 0);
    std::thread echo([&] {
        char b[64];
        ssize_t n;
        while ((n = read(peer.Conn(), b, sizeof b)) > 0)
            (void)write(peer.Conn(), b, static_cast<size_t>(n));
    });
    const int total = 2000;
    int got = 0;
    std::thread reader([&] {
        char b[64];
        while (got < total) {
            const int n = sock.Read(b, sizeof b, 2000);
            if (n <= 0)
                break;
            got += n;
        }
        // Blocks for ever until Close() below wakes it.
        got += sock.Read(b, sizeof b, -1) < 0 ? 0 : 1;
    });
    for (int i = 0; i < total / 4; ++i)
        ASSERT_EQ(4, sock.Write("ping", 4));
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    sock.Close();
    reader.join();
    EXPECT_EQ(total, got);
    shutdown(peer.Conn(), SHUT_RDWR);
    echo.join();
    EXPECT_LT(sock.Write("x", 1), 0);
}
