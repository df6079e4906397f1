// Threads: the inherited-scheduling fallback when SCHED_RR is refused.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <atomic>

#include "Qb/Thread.h"
#include "Qb/WakeUpTimer.h"
#include "TestSupport.h"

using namespace Qb;

TEST(QbThread, RefusedRealTimeFallsBackWithOneWarning)
{
    const QbTest::ChildResult r = QbTest::RunChild([] {
        setenv("QB_REFUSE_SCHED_RR", "1", 1);
        std::atomic<int> seen(-1), runs(0);
        CThread a("a", 10, [&] {
            seen = CThread::GetPriority();
            ++runs;
        });
        CThread b("b", 20, [&] { ++runs; });
        if (a.Handle() != 0 || !a.Start() || a.Handle() == 0 || !b.Start())
            return 2;
        a.Join();
        b.Join();
        CWakeUpTimer timer(30);  // its thread falls back too, without a second warning
        return (runs == 2 && seen == 0) ? 0 : 3;
    });
    EXPECT_EQ(0, r.status);
    const size_t first = r.err.find("SCHED_RR");
    EXPECT_NE(std::string::npos, first) << r.err;
    EXPECT_EQ(std::string::npos, r.err.find("SCHED_RR", first + 1)) << r.err;
}
