// The event queue's costs: posting and draining, the latency of waking a blocked reader from
// another thread, and the processor time that a long blocked wait uses.
#include "wsEventQ.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <chrono>
#include <semaphore>
#include <sys/resource.h>
#include <thread>

using namespace Zr;

namespace {

class StampedEvent : public EvEvent {
public:
    ZR_EVENT_CLASS(StampedEvent)
    explicit StampedEvent(std::int64_t stamp) : _stamp(stamp) {}
    std::int64_t _stamp;
};

std::int64_t nowUst() {
    return DtRefTimeFactory::now().getTicks();
}

double cpuSeconds() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    auto seconds = [](timeval const& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(u.ru_utime) + seconds(u.ru_stime);
}

// Posts a batch of events and drains them with getAllEvents; the figure per item is the cost
// of one event through the queue, its allocation and destruction included.
void BM_PostAndDrain(benchmark::State& state) {
    WsEventQ& q = WsEventQ::getInstance();
    q.clear();
    int const batch = static_cast<int>(state.range(0));
    std::deque<OPtr<EvEvent>> out;
    for (auto _ : state) {
        for (int i = 0; i < batch; ++i)
            q.postEvent(std::make_unique<StampedEvent>(i));
        q.getAllEvents(out);
        benchmark::DoNotOptimize(out.size());
        out.clear();
    }
    state.SetItemsProcessed(state.iterations() * batch);
}
BENCHMARK(BM_PostAndDrain)->Arg(1)->Arg(64)->Arg(1024);

// The reader blocks in getNextEvent without limit; another thread posts an event stamped with
// the time of posting. The iteration time is from the post to the reader holding the event.
void BM_WakeLatency(benchmark::State& state) {
    WsEventQ& q = WsEventQ::getInstance();
    q.clear();
    std::binary_semaphore readerReady(0);
    std::atomic<bool> stop{false};
    std::thread poster([&] {
        for (;;) {
            readerReady.acquire();
            if (stop.load())
                return;
            // Give the reader time to block before posting.
            std::this_thread::sleep_for(std::chrono::microseconds(300));
            q.postEvent(std::make_unique<StampedEvent>(nowUst()));
        }
    });
    for (auto _ : state) {
        readerReady.release();
        OPtr<EvEvent> e = q.getNextEvent(DtTimeIndex::MAX);
        std::int64_t latency = nowUst() - dynamic_cast<StampedEvent&>(*e)._stamp;
        state.SetIterationTime(static_cast<double>(latency) / 1e6);
    }
    stop.store(true);
    readerReady.release();
    poster.join();
}
BENCHMARK(BM_WakeLatency)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000);

// A wait of 3 s on an empty queue: the processor time it costs, which should be nil.
void BM_BlockedWaitCpu(benchmark::State& state) {
    WsEventQ& q = WsEventQ::getInstance();
    q.clear();
    double cpu = 0, wall = 0;
    for (auto _ : state) {
        double cpuStart = cpuSeconds();
        auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(q.wait(1, DtTimeIndex(nowUst() + 3000000)));
        wall += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        cpu += cpuSeconds() - cpuStart;
    }
    state.counters["cpu_ms"] = cpu * 1000 / static_cast<double>(state.iterations());
    state.counters["wall_ms"] = wall * 1000 / static_cast<double>(state.iterations());
}
BENCHMARK(BM_BlockedWaitCpu)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
