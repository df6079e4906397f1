// The wake-up timer: periods, one-shots, removal from inside and outside a call-back.
// Timing checks are lower bounds or generous upper bounds, so a loaded machine stays green.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <vector>

#include "Qb/WakeUpTimer.h"
#include "TestSupport.h"

using namespace Qb;
using QbTest::WaitFor;
typedef std::chrono::steady_clock Clock;

namespace {

// Records when it was called; shared by all sinks of a test to catch overlapping calls.
struct Recorder : IProcessRequests {
    explicit Recorder(std::atomic<int>* inside = nullptr) : pInside(inside) {}
    void ProcessRequest() override
    {
        if (pInside && pInside->fetch_add(1) != 0)
            overlapped = true;
        {
            std::lock_guard<std::mutex> lock(mutex);
            times.push_back(Clock::now());
        }
        OnCall();
        if (pInside)
            pInside->fetch_sub(1);
    }
    virtual void OnCall() {}
    size_t Calls()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return times.size();
    }
    std::vector<Clock::time_point> Times()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return times;
    }
    std::atomic<int>* pInside;
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
    struct Staller : Recorder {
        void OnCall() override
        {
            if (Calls() == 3)
                std::this_thread::sleep_for(std::chrono::milliseconds(170));  // misses 3 periods
        }
    } sink;
    CWakeUpTimer timer;
    unsigned id = CWakeUpTimer::INVALID_ID;
    const auto added = Clock::now();
    ASSERT_TRUE(timer.AddEvent(&sink, 40, id, true));
    EXPECT_NE(CWakeUpTimer::INVALID_ID, id);
    ASSERT_TRUE(WaitFor([&] { return sink.Calls() >= 8; }));
    EXPECT_TRUE(timer.RemoveEvent(id));
    const auto t = sink.Times();
    // Never early: call k+1 not before k+1 periods after AddEvent.
    EXPECT_GE(Ms(t[0] - added), 39);
    for (size_t k = 1; k < 3; ++k)
        EXPECT_GE(Ms(t[k] - added), 40 * static_cast<long>(k + 1) - 1) << k;
    // After the stall the next call is a full period later, not a burst of missed ones.
    EXPECT_GE(Ms(t[3] - t[2]), 165);
    EXPECT_GE(Ms(t[4] - t[3]), 39);
}

TEST(QbTimer, OneShotsAndTwoEventsRunOneAtATime)
{
    std::atomic<int> inside(0);
    Recorder fast(&inside), slow(&inside), once(&inside);
    CWakeUpTimer timer;
    unsigned idFast = 0, idSlow = 0, idOnce = 0;
    ASSERT_TRUE(timer.AddEvent(&fast, 10, idFast, true));
    ASSERT_TRUE(timer.AddEvent(&slow, 35, idSlow, true));
    ASSERT_TRUE(timer.AddEvent(&once, 5, idOnce, false));
    EXPECT_EQ(3, timer.Count());
    EXPECT_TRUE(idFast != idSlow && idSlow != idOnce && idFast != idOnce);
    ASSERT_TRUE(WaitFor([&] { return slow.Calls() >= 4 && fast.Calls() >= 4; }));
    EXPECT_EQ(1u, once.Calls());
    EXPECT_EQ(2, timer.Count());  // the one-shot is gone
    EXPECT_FALSE(timer.RemoveEvent(idOnce));
    EXPECT_EQ(CWakeUpTimer::INVALID_ID, idOnce);
    EXPECT_TRUE(timer.RemoveEvent(idFast));
    EXPECT_TRUE(timer.RemoveEvent(idSlow));
    EXPECT_FALSE(fast.overlapped || slow.overlapped || once.overlapped);

    // A removed id is not handed out again soon.
    unsigned again = 0;
    ASSERT_TRUE(timer.AddEvent(&once, 1000, again, false));
    EXPECT_TRUE(again != 0 && again != 1 && again != 2 && again != 3);
}

TEST(QbTimer, RemoveFromInsideACallback)
{
    CWakeUpTimer timer;
    unsigned other = 0;
    struct SelfRemover : Recorder {
        void OnCall() override
        {
            EXPECT_TRUE(pTimer->RemoveEvent(*pOther));  // another event: must not wait
            EXPECT_TRUE(pTimer->RemoveEvent(id));       // itself
            EXPECT_EQ(CWakeUpTimer::INVALID_ID, id);
        }
        CWakeUpTimer* pTimer = nullptr;
        unsigned* pOther = nullptr;
        unsigned id = 0;
    } self;
    Recorder victim;
    self.pTimer = &timer;
    self.pOther = &other;
    ASSERT_TRUE(timer.AddEvent(&victim, 60000, other, true));
    ASSERT_TRUE(timer.AddEvent(&self, 10, self.id, true));
    ASSERT_TRUE(WaitFor([&] { return timer.Count() == 0; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(1u, self.Calls());
    EXPECT_EQ(0u, victim.Calls());
}

TEST(QbTimer, RemoveFromAnotherThreadWaitsForTheRunningCallback)
{
    struct Slow : Recorder {
        void OnCall() override
        {
            entered = true;
            std::this_thread::sleep_for(std::chrono::milliseconds(80));
            returned = true;
        }
        std::atomic<bool> entered{false}, returned{false};
    } sink;
    CWakeUpTimer timer;
    unsigned id = 0;
    ASSERT_TRUE(timer.AddEvent(&sink, 5, id, true));
    ASSERT_TRUE(WaitFor([&] { return sink.entered.load(); }));
    EXPECT_TRUE(timer.RemoveEvent(id));
    EXPECT_TRUE(sink.returned);  // it waited for the call in progress
    const size_t calls = sink.Calls();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(calls, sink.Calls());  // and no call after it returned
}

TEST(QbTimer, DestructionDropsPendingEvents)
{
    Recorder sink;
    {
        CWakeUpTimer timer;
        unsigned id = 0;
        timer.AddEvent(&sink, 30, id, false);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    EXPECT_EQ(0u, sink.Calls());
}
