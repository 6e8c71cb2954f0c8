#include "Crowd.h"
#include "Measurements.h"

#include "bench/peers/RawEcho.h"
#include "bench/support/Child.h"
#include "bench/support/Failure.h"
#include "bench/support/Figures.h"
#include "bench/support/Pinning.h"
#include "bench/support/Samples.h"
#include "bench/support/Service.h"
#include "bench/support/WireSizes.h"

#include <kelutv/kelutv.h>

#include <chrono>
#include <string>
#include <vector>

namespace kelutv::bench {

namespace {

constexpr size_t kBare = 0;
constexpr size_t kLibrary = 1;

void call() {
    if (linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20) != 0) {
        giveUp("a call failed");
    }
}

/**
 * Bare pairs and the library take turns, so that both meet the same machine; the ratio is that of the medians. Callers
 * and answerers have a core each: where the scheduler puts so many free threads would outweigh what is measured.
 */
void measureCrowd(const std::string& path, Crowd::Kind kind, size_t callers, Extent extent) {
    RawEcho bare(callers, kMessageHead + kSetVolumeRequest, kMessageHead + kStatusReply);
    const Service service;
    pinCaller(Pinning::TwoCores);
    pinAnswerer(bare.process(), Pinning::TwoCores);
    pinAnswerer(service.process(), Pinning::TwoCores);
    Crowd crowd(kind, callers, {[&bare](size_t caller) { bare.roundTrip(caller); }, [](size_t) { call(); }});

    const auto time = std::chrono::milliseconds(amount(extent, 20, 200));
    crowd.rate(kBare, time);
    crowd.rate(kLibrary, time);
    Samples bareRates;
    Samples libraryRates;
    for (int turn = 0; turn < amount(extent, 1, 9); ++turn) {
        bareRates.add(crowd.rate(kBare, time));
        libraryRates.add(crowd.rate(kLibrary, time));
    }
    const std::string place = path + "/" + std::to_string(callers);
    printFigure(place + "/bare_calls_per_s", bareRates.median());
    printFigure(place + "/library_calls_per_s", libraryRates.median());
    printFigure(place + "/ratio_to_bare", libraryRates.median() / bareRates.median());
}

} // namespace

void measureThreads(Extent extent) {
    for (const size_t threads : amount<std::vector<size_t>>(extent, {1, 4}, {1, 2, 4, 8, 16, 32, 64})) {
        runApart([&] { measureCrowd("threads", Crowd::Kind::Threads, threads, extent); });
    }
}

void measureClients(Extent extent) {
    for (const size_t clients : amount<std::vector<size_t>>(extent, {1, 8}, {1, 2, 5, 10, 20, 50, 100, 200})) {
        runApart([&] { measureCrowd("clients", Crowd::Kind::Processes, clients, extent); });
    }
}

} // namespace kelutv::bench
