#include "tools/process/Deadline.h"

#include <poll.h>

#include <algorithm>
#include <climits>
#include <vector>

namespace kelutv::process {

namespace {

using Clock = std::chrono::steady_clock;

/** What is left as poll(2) takes it. */
int millisecondsTo(Clock::time_point end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, INT_MAX));
}

} // namespace

Deadline deadlineIn(std::optional<Seconds> time) {
    return time ? Deadline(Clock::now() + std::chrono::duration_cast<Clock::duration>(*time)) : std::nullopt;
}

bool waitToRead(std::initializer_list<int> descriptors, Deadline deadline) {
    std::vector<pollfd> watched;
    for (const int descriptor : descriptors) {
        watched.push_back({descriptor, POLLIN, 0});
    }
    int ready = 0;
    do {
        ready = ::poll(watched.data(), watched.size(), deadline ? millisecondsTo(*deadline) : -1);
    } while (ready <= 0 && (!deadline || Clock::now() < *deadline));
    return ready > 0;
}

} // namespace kelutv::process
