#include "torture/soak/Listener.h"

#include <keluem/emal.h>

#include <cstring>
#include <stdexcept>

namespace kelutv::test {

namespace {

/** A listener whose test is gone ends by itself. */
constexpr std::chrono::minutes kLongestLife{30};

void keepBusy(std::chrono::microseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) {
    }
}

} // namespace

Listener::Counts* Listener::gCounts = nullptr;
std::chrono::microseconds Listener::gWork{0};

Listener::Listener(std::chrono::microseconds work) {
    mProcess = std::make_unique<ForkedProcess>([this, work] { live(work); });
    if (!eventually([this] { return mCounts->subscribed.load(); })) {
        throw std::runtime_error("a listener did not subscribe: " + mProcess->text());
    }
}

void Listener::live(std::chrono::microseconds work) {
    gCounts = &*mCounts;
    gWork = work;
    mCounts->subscribed = EMAL_AddListener(kSoakModule, onEvent) == 0;
    eventually([this] { return mCounts->finished.load(); }, kLongestLife);
}

void Listener::onEvent(unsigned int, void* data, unsigned int length, void*) {
    long number = 0;
    if (length == sizeof number) {
        std::memcpy(&number, data, sizeof number);
    }
    if (number <= gCounts->last) {
        ++gCounts->wrong;
    } else {
        if (gCounts->first == 0) {
            gCounts->first = number;
        }
        gCounts->last = number;
        ++gCounts->received;
    }
    keepBusy(gWork);
}

bool Listener::finish() {
    mCounts->finished = true;
    return mProcess->wait() == 0;
}

} // namespace kelutv::test
