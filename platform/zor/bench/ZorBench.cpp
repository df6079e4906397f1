// Costs of the SDK's common requests, in-process and over a unitd socket.
#include <benchmark/benchmark.h>

#include <condition_variable>
#include <fstream>
#include <memory>
#include <mutex>

#include "UnitdProcess.h"
#include "Zor/Zor.h"

namespace {

// A unit with one 100-instance object, written once per process.
std::string BenchUnitFile()
{
    static const std::string path = "/tmp/zor-bench-" + std::to_string(getpid()) + ".json";
    static bool written = false;
    if (!written) {
        std::ofstream out(path);
        out << R"({"objects": {"unitAlias": {"type": "string", "values": {".0": "IRD-01"}},)"
            << R"("tsinputsrcLabel": {"type": "string", "values": {)";
        for (int i = 1; i <= 100; ++i) {
            out << (i > 1 ? "," : "") << "\"." << i << ".1\": \"Input " << i << "\"";
        }
        out << "}}}}";
        written = true;
    }
    return path;
}

// The target for a link: 0 embedded, 1 a unitd started for the run.
std::string Target(int link)
{
    if (link == 0) {
        return "embedded:" + BenchUnitFile();
    }
    static std::unique_ptr<CUnitdProcess> unitd;
    if (!unitd) {
        unitd.reset(new CUnitdProcess(BenchUnitFile(), TestSocketPath("bench")));
        unitd->Start();
    }
    return "unix:" + unitd->Socket();
}

const char* LinkName(int link)
{
    return link == 0 ? "embedded" : "unix";
}

class CWaitingSink : public Zor::IManagedEventSink {
public:
    void ManagedEvent(const std::string&, const Zor::COid&, const Zor::CParam&) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        ++m_count;
        m_cv.notify_all();
    }
    void WaitFor(long n)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_cv.wait(lock, [&] { return m_count >= n; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    long m_count = 0;
};

void SingleGet(benchmark::State& state)
{
    Zor::CZorClient client("zor.bench", Target(static_cast<int>(state.range(0))));
    state.SetLabel(LinkName(static_cast<int>(state.range(0))));
    Zor::COid instance(".0");
    for (auto _ : state) {
        Zor::CRet ret = client.GetVal("zor.bench", "unitAlias", instance, true);
        if (!ret.Success()) {
            state.SkipWithError(ret.Msg().c_str());
            break;
        }
        benchmark::DoNotOptimize(ret);
    }
}

void MultiGetPattern100(benchmark::State& state)
{
    Zor::CZorClient client("zor.bench", Target(static_cast<int>(state.range(0))));
    state.SetLabel(LinkName(static_cast<int>(state.range(0))));
    Zor::CParam keys(Zor::PT_LIST);
    keys.AddParam(Zor::CParam::String("tsinputsrcLabel.%"));
    for (auto _ : state) {
        Zor::CRet ret = client.GetValues("zor.bench", keys);
        if (ret.Val()["tsinputsrcLabel"].Length() != 100) {
            state.SkipWithError("expected 100 instances");
            break;
        }
        benchmark::DoNotOptimize(ret);
    }
}

// One write, until its event has reached the one subscriber.
void SetWithSubscriber(benchmark::State& state)
{
    Zor::CZorClient client("zor.bench", Target(static_cast<int>(state.range(0))));
    state.SetLabel(LinkName(static_cast<int>(state.range(0))));
    CWaitingSink sink;
    client.AddManagedEventHandler("unitAlias", &sink, ".%");
    Zor::CParam value = Zor::CParam::String("BENCH");
    long n = 0;
    for (auto _ : state) {
        Zor::CRet ret = client.SendOp("zor.bench", "unitAlias", ".0", value);
        if (!ret.Success()) {
            state.SkipWithError(ret.Msg().c_str());
            break;
        }
        sink.WaitFor(++n);
    }
    client.RemoveManagedEventHandler("unitAlias", &sink, ".%");
}

}  // namespace

BENCHMARK(SingleGet)->Arg(0)->Arg(1);
BENCHMARK(MultiGetPattern100)->Arg(0)->Arg(1);
BENCHMARK(SetWithSubscriber)->Arg(0)->Arg(1);

BENCHMARK_MAIN();
