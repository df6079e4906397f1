// Semaphore time-outs, the bounded message queue and the recursive mutex.
#include <gtest/gtest.h>

#include <thread>

#include "Qb/MsgQ.h"
#include "Qb/Mutex.h"
#include "Qb/Semaphore.h"
#include "TestSupport.h"

using namespace Qb;
using QbTest::ElapsedMs;

TEST(QbSync, SemaphoreWaitTimesOutAndTakesPosts)
{
    CSemaphore sem(1);
    EXPECT_TRUE(sem.Wait(0));  // the initial count
    auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(sem.Wait(80));
    EXPECT_GE(ElapsedMs(start), 75);  // milliseconds, not seconds or ticks
    EXPECT_FALSE(sem.Wait(0));

    std::thread poster([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        sem.Post();
    });
    EXPECT_TRUE(sem.Wait(-1));
    poster.join();
    EXPECT_EQ(0u, sem.Count());
}

TEST(QbSync, QueueOfDepthSixDropsTheSeventh)
{
    CMsgQ<int> q(6, "test");
    for (int i = 1; i <= 6; ++i)
        EXPECT_TRUE(q.Post(i));
    EXPECT_FALSE(q.Post(7));
    EXPECT_EQ(6, q.Size());
    int v = 0;
    for (int i = 1; i <= 6; ++i) {
        ASSERT_TRUE(q.Take(v, 0));
        EXPECT_EQ(i, v);  // oldest first
    }
    EXPECT_FALSE(q.Take(v, 20));
    EXPECT_TRUE(q.Post(8));  // room again once drained

    CMsgQ<int> unbounded(0);
    for (int i = 0; i < 1000; ++i)
        ASSERT_TRUE(unbounded.Post(i));
}

TEST(QbSync, MutexIsRecursiveAndExcludesOtherThreads)
{
    CMutex m("test");
    m.Lock();
    {
        CMutexLocker again(m);  // would deadlock on a plain mutex
    }
    bool otherGotIt = true;
    std::thread([&] { otherGotIt = m.TryLock(); }).join();
    EXPECT_FALSE(otherGotIt);
    m.Unlock();
    std::thread([&] {
        otherGotIt = m.TryLock();
        if (otherGotIt)
            m.Unlock();
    }).join();
    EXPECT_TRUE(otherGotIt);
}
