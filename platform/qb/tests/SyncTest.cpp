// Semaphore time-outs, the bounded message queue and the recursive mutex.
#include <gtest/gtest.h>

#include <thread>

#include "Qb/MsgQ.h"
#include "Qb/Mutex.h"
#include "Qb/Semaphore.h"
#include "TestSupport.h"

using namespace Qb;

TEST(QbSync, SemaphoreWaitTimesOutInMillisecondsAndTakesPosts)
{
    CSemaphore sem(1);
    EXPECT_TRUE(sem.Wait(0));  // the initial count
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(sem.Wait(80));
    EXPECT_GE(QbTest::ElapsedMs(start), 75);

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
    int v = 0;
    for (int i = 1; i <= 6; ++i) {
        ASSERT_TRUE(q.Take(v, 0));
        EXPECT_EQ(i, v);  // oldest first
    }
    EXPECT_FALSE(q.Take(v, 20));
    EXPECT_TRUE(q.Post(8));  // room again once drained
}

TEST(QbSync, MutexIsRecursiveAndExcludesOtherThreads)
{
    CMutex m("test");
    CMutexLocker outer(m);
    CMutexLocker inner(m);  // a plain mutex would deadlock here
    bool otherGotIt = true;
    std::thread([&] { otherGotIt = m.TryLock(); }).join();
    EXPECT_FALSE(otherGotIt);
}
