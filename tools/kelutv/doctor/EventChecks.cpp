#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/doctor/DoctorChecks.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/events/EventQueue.h"
#include "tools/kelutv/events/EventSubscription.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/FunctionNamed.h"

#include <poll.h>

#include <algorithm>
#include <memory>

namespace kelutv::tool {

namespace {

using Clock = std::chrono::steady_clock;

/** Made by the first check that needs it, and there to the end of the process. */
void subscribe() {
    static const auto* const subscription = [] {
        const auto modules = allModules();
        return new EventSubscription({modules.begin(), modules.end()});
    }();
    (void)subscription;
}

/** Waits until something happens that the queue tells. @return whether it did within so many seconds */
bool waitFor(double seconds, const std::function<bool()>& happened) {
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    pollfd queue{EventQueue::instance().fd(), POLLIN, 0};
    while (!happened()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) {
            return false;
        }
        ::poll(&queue, 1, static_cast<int>(left));
    }
    return true;
}

Finding lookForSubscription() {
    subscribe();
    return {Verdict::Good, "to " + std::to_string(allModules().size()) + " modules"};
}

std::string textOf(const ReceivedEvent& event) {
    const wire::EventTable events = eventsOf("");
    const wire::Event* const known = events.find(event.id);
    char number[16];
    std::snprintf(number, sizeof(number), "0x%X", event.id);
    const std::string module = moduleName(wire::moduleOf(event.id));
    return std::string(number) + (known != nullptr ? std::string(" ") + known->name : "") +
           (module.empty() ? "" : " of " + module);
}

/** Changes the volume of the speaker by one and back. */
void stirVolume() {
    const auto& get = functionNamed("linux_tv_Audio_getVolume");
    const auto& set = functionNamed("linux_tv_Audio_setVolume");
    const auto volume = callFunction(get, {"speaker"}).result.asInteger();
    callFunction(set, {"speaker", std::to_string(volume > 0 ? volume - 1 : volume + 1)});
    callFunction(set, {"speaker", std::to_string(volume)});
}

Finding lookForEvent(double seconds, bool mayChange) {
    subscribe();
    EventQueue& queue = EventQueue::instance();
    if (mayChange) {
        stirVolume();
    }
    std::deque<ReceivedEvent> events;
    const auto start = Clock::now();
    waitFor(seconds, [&] {
        events = queue.take();
        return !events.empty() || queue.isLost();
    });
    if (!events.empty()) {
        return {Verdict::Good, textOf(events.front()), Clock::now() - start};
    }
    if (queue.isLost()) {
        return {Verdict::Unlinked, "the service ended while an event was waited for"};
    }
    return {mayChange ? Verdict::Bad : Verdict::Warning,
            "none within " +
                millisecondsText(
                    std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::duration<double>(seconds))) +
                (mayChange ? ", though the volume was changed and put back"
                           : "; change something meanwhile, or let --change do it")};
}

Finding lookForDeath(double seconds) {
    subscribe();
    EventQueue& queue = EventQueue::instance();
    const auto start = Clock::now();
    const bool isLost = waitFor(seconds, [&queue] {
        queue.take();
        return queue.isLost();
    });
    return {isLost ? Verdict::Good : Verdict::Bad, isLost ? "noticed" : "not noticed in time", Clock::now() - start};
}

} // namespace

void addEventChecks(std::vector<Check>& checks, const DoctorOptions& options) {
    checks.push_back({"events.subscription", "events", options.limit, [] { return askingFinds(lookForSubscription); }});
    if (options.events > 0) {
        checks.push_back({"events.received", "events", options.events + options.limit, [options] {
                              return askingFinds(
                                  [&options] { return lookForEvent(options.events, options.mayChange); });
                          }});
    }
}

void addDeathCheck(std::vector<Check>& checks, const DoctorOptions& options) {
    if (options.death > 0) {
        checks.push_back({"death", "death", options.death + options.limit,
                          [options] { return askingFinds([&options] { return lookForDeath(options.death); }); }});
    }
}

} // namespace kelutv::tool
