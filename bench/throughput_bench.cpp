// Several threads at once: whether callers get in each other's way.

#include "Pinning.h"
#include "RawEcho.h"
#include "ServiceProcess.h"
#include "WireSizes.h"

#include <kelutv/kelutv.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>
#include <vector>

namespace {

using namespace kelutv::bench;

constexpr int kThreads = 4;
constexpr int kCallsPerThread = 5000;

/** Calls per second that the threads reach together. */
double throughput(const std::function<void(int)>& call) {
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&call, thread] {
            for (int i = 0; i < kCallsPerThread; ++i) {
                call(thread);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return kThreads * kCallsPerThread / taken.count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/**
 * Raw and library take turns, so that both meet the same machine; the ratio is that of the medians. Callers and
 * answerers have a core each: where the scheduler puts eight free threads would outweigh what is measured.
 */
void fourThreads(benchmark::State& state) {
    RawEcho raw(kThreads, kSetVolumeRequestSize, kStatusReplySize);
    const pid_t service = serviceProcess();
    pinCaller(Pinning::TwoCores);
    pinAnswerer(raw.process(), Pinning::TwoCores);
    pinAnswerer(service, Pinning::TwoCores);
    const auto rawCall = [&raw](int thread) { raw.roundTrip(thread); };
    const auto libraryCall = [](int) { linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20); };
    throughput(rawCall);
    throughput(libraryCall);

    std::vector<double> rawRates;
    std::vector<double> libraryRates;
    for (auto _ : state) {
        rawRates.push_back(throughput(rawCall));
        libraryRates.push_back(throughput(libraryCall));
    }
    state.counters["raw_calls_per_s"] = median(rawRates);
    state.counters["library_calls_per_s"] = median(libraryRates);
    state.counters["ratio_library_to_raw"] = median(libraryRates) / median(rawRates);
}

BENCHMARK(fourThreads)->Iterations(9)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
