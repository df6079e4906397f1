// The wake-up timer: periods, one-shots, removal from inside and outside a call-back.
// Timing checks are lower bounds or generous upper bounds, so a loaded machine stays green.
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <vector>

#include "Qb/WakeUpTimer.h"
#include "TestSupport.h"

using namespace Qb;
using QbTest::WaitFor;
typedef std::chrono::steady_clock Clock;

namespace {

// Records its calls, runs an optional action, and flags calls that overlap any other
// call of sinks sharing the same counter.
struct Sink : IProcessRequests {
    void ProcessRequest() override
    {
        if (inside->fetch_add(1) != 0)
            overlapped = true;
        {
            std::lock_guard<std::mutex> lock(mutex);
            times.push_back(Clock::now());
        }
        if (action)
            action();
        inside->fetch_sub(1);
    }
    std::vector<Clock::time_point> Times()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return times;
    }
    size_t Calls() { return Times().size(); }

    std::function<void()> action;
    std::atomic<int> ownInside{0};
    std::atomic<int>* inside = &ownInside;
    std::atomic<bool> overlapped{false};
    std::mutex mutex;
    std::vector<Clock::time_point> times;
};

long Ms(Clock::duration d)
{
    return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(d).count());
}

}  // namespace

TEST(QbTimer, RepeatingEventKeepsItsPeriodAndSkipsMissedOnes)
{
    Sink sink;
    sink.action = [&] {
        if (sink.Calls() == 3)
            std::this_thread::sleep_for(std::chrono::milliseconds(170));  // misses 3 periods
    };
    CWakeUpTimer timer;
    unsigned id = CWakeUpTimer::INVALID_ID;
    const auto added = Clock::now();
    ASSERT_TRUE(timer.AddEvent(&sink, 40, id, true));
    EXPECT_NE(CWakeUpTimer::INVALID_ID, id);
    ASSERT_TRUE(WaitFor([&] { return sink.Calls() >= 6; }));
    EXPECT_TRUE(timer.RemoveEvent(id));
    const auto t = sink.Times();
    for (size_t k = 0; k < 3; ++k)  // never early: call k not before k+1 periods
        EXPECT_GE(Ms(t[k] - added), 40 * static_cast<long>(k + 1) - 1) << k;
    // The late call comes once; the next is a full period later, not a burst of missed ones.
    EXPECT_GE(Ms(t[4] - t[3]), 39);
}

TEST(QbTimer, EventsRunOneAtATimeAndOneShotsOnce)
{
    std::atomic<int> inside(0);
    Sink fast, slow, once, never;
    fast.inside = slow.inside = once.inside = &inside;
    unsigned idFast = 0, idSlow = 0, idOnce = 0, idNever = 0;
    {
        CWakeUpTimer timer;
        ASSERT_TRUE(timer.AddEvent(&fast, 10, idFast, true));
        ASSERT_TRUE(timer.AddEvent(&slow, 35, idSlow, true));
        ASSERT_TRUE(timer.AddEvent(&once, 5, idOnce, false));
        ASSERT_TRUE(timer.AddEvent(&never, 60000, idNever, false));
        EXPECT_TRUE(idFast != idSlow && idSlow != idOnce && idFast != idOnce);
        ASSERT_TRUE(WaitFor([&] { return slow.Calls() >= 4 && fast.Calls() >= 4; }));
        EXPECT_EQ(1u, once.Calls());
        EXPECT_EQ(3, timer.Count());  // the one-shot is gone
        EXPECT_FALSE(timer.RemoveEvent(idOnce));
        EXPECT_TRUE(timer.RemoveEvent(idFast));
        EXPECT_TRUE(timer.RemoveEvent(idSlow));
        EXPECT_EQ(CWakeUpTimer::INVALID_ID, idFast);
    }  // destroyed with an event pending: it is dropped, not called
    EXPECT_FALSE(fast.overlapped || slow.overlapped || once.overlapped);
    EXPECT_EQ(0u, never.Calls());
}

TEST(QbTimer, RemoveFromInsideACallback)
{
    CWakeUpTimer timer;
    Sink self, victim;
    unsigned selfId = 0, victimId = 0;
    self.action = [&] {
        EXPECT_TRUE(timer.RemoveEvent(victimId));  // another event: must not wait
        EXPECT_TRUE(timer.RemoveEvent(selfId));    // itself
    };
    ASSERT_TRUE(timer.AddEvent(&victim, 60000, victimId, true));
    ASSERT_TRUE(timer.AddEvent(&self, 10, selfId, true));
    ASSERT_TRUE(WaitFor([&] { return timer.Count() == 0; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(1u, self.Calls());
    EXPECT_EQ(0u, victim.Calls());
}

TEST(QbTimer, RemoveFromAnotherThreadWaitsForTheRunningCallback)
{
    Sink sink;
    std::atomic<bool> entered(false), returned(false);
    sink.action = [&] {
        entered = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(80));
        returned = true;
    };
    CWakeUpTimer timer;
    unsigned id = 0;
    ASSERT_TRUE(timer.AddEvent(&sink, 5, id, true));
    ASSERT_TRUE(WaitFor([&] { return entered.load(); }));
    EXPECT_TRUE(timer.RemoveEvent(id));
    EXPECT_TRUE(returned);  // it waited for the call in progress
    const size_t calls = sink.Calls();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(calls, sink.Calls());  // and no call starts after it returned
}
