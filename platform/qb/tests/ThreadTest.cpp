// Threads: real-time priority where granted, the inherited-scheduling fallback where not.
#include <gtest/gtest.h>
#include <sched.h>
#include <stdlib.h>

#include <atomic>

#include "Qb/Thread.h"
#include "Qb/WakeUpTimer.h"
#include "TestSupport.h"

using namespace Qb;

namespace {

int CountLines(const std::string& text, const std::string& word)
{
    int n = 0;
    for (size_t pos = text.find(word); pos != std::string::npos; pos = text.find(word, pos + 1))
        ++n;
    return n;
}

}  // namespace

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
        if (!a.Start() || a.Handle() == 0 || !b.Start())
            return 2;
        a.Join();
        b.Join();
        CWakeUpTimer timer(30);  // its thread falls back too, without a second warning
        return (runs == 2 && seen == 0) ? 0 : 3;
    });
    EXPECT_EQ(0, r.status);
    EXPECT_EQ(1, CountLines(r.err, "SCHED_RR")) << r.err;
}

TEST(QbThread, PriorityIsGrantedOrRefusedWithAWarning)
{
    const QbTest::ChildResult r = QbTest::RunChild([] {
        unsetenv("QB_REFUSE_SCHED_RR");
        int seen = -1;
        CThread t("rt", 5, [&] { seen = CThread::GetPriority(); });
        if (!t.Start())
            return 2;
        t.Join();
        return seen == 5 ? 0 : (seen == 0 ? 10 : 3);
    });
    if (r.status == 10) {
        EXPECT_EQ(1, CountLines(r.err, "SCHED_RR")) << r.err;  // unprivileged here
    } else {
        EXPECT_EQ(0, r.status) << r.err;
    }

    CThread plain("plain", 0, [] {});
    EXPECT_EQ(0UL, plain.Handle());
    plain.Join();  // not started: nothing to wait for
    ASSERT_TRUE(plain.Start());
    EXPECT_NE(0UL, plain.Handle());
}
