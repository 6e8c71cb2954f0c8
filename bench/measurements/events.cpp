#include "EventListeners.h"
#include "Measurements.h"

#include "bench/support/Child.h"
#include "bench/support/Failure.h"
#include "bench/support/Figures.h"
#include "bench/support/Pinning.h"
#include "bench/support/Samples.h"

#include <keluem/publisher.h>

#include <array>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace kelutv::bench {

namespace {

using Payload = std::array<char, 16>;

/** How many events reach every listener in a second, measured over some bursts. */
double rate(const EventListeners& listeners, int bursts, const std::function<void()>& publish) {
    const auto start = std::chrono::steady_clock::now();
    for (int burst = 0; burst < bursts; ++burst) {
        for (int event = 0; event < EventListeners::kBurst; ++event) {
            publish();
        }
        listeners.awaitBurst();
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return bursts * EventListeners::kBurst / taken.count();
}

void measureListeners(const std::string& path, size_t count, bool oneIsSlow, Extent extent) {
    const EventListeners listeners(count, oneIsSlow, sizeof(unsigned int) + sizeof(Payload));
    listeners.pin();
    pinCaller(Pinning::TwoCores);
    keluem::Publisher publisher;
    const Payload payload{};
    const auto publish = [&] {
        if (publisher.publish(EventListeners::kEvent, payload.data(), payload.size()) != 0) {
            giveUp("an event could not be published");
        }
    };
    const auto send = [&listeners] { listeners.sendBare(); };
    rate(listeners, 1, send);
    rate(listeners, 1, publish);
    Samples bareRates;
    Samples libraryRates;
    const int bursts = amount(extent, 1, 8);
    for (int turn = 0; turn < amount(extent, 3, 9); ++turn) {
        bareRates.add(rate(listeners, bursts, send));
        libraryRates.add(rate(listeners, bursts, publish));
    }
    printFigure(path + "/bare_events_per_s", bareRates.median());
    printFigure(path + "/library_events_per_s", libraryRates.median());
    printFigure(path + "/ratio_to_bare", libraryRates.median() / bareRates.median());
}

} // namespace

void measureEvents(Extent extent) {
    for (const size_t count : amount<std::vector<size_t>>(extent, {2}, {1, 2, 5, 10, 20, 50})) {
        const std::string number = std::to_string(count);
        runApart([&] { measureListeners("events/all_fast/" + number, count, false, extent); });
        if (count > 1) {
            runApart([&] { measureListeners("events/one_slow/" + number, count, true, extent); });
        }
    }
}

} // namespace kelutv::bench
