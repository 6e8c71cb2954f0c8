#include "simulator/Inbox.h"

#include "support/Deadline.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace kelutv::test {

std::ostream& operator<<(std::ostream& out, const Event& event) {
    return out << std::hex << event.id << std::dec << ::testing::PrintToString(event.words);
}

Inbox& Inbox::instance() {
    static auto* const inbox = new Inbox;
    return *inbox;
}

void Inbox::onEvent(int id, void* data, unsigned int length, void*) {
    std::vector<int> words(length / sizeof(int));
    if (!words.empty()) {
        std::memcpy(words.data(), data, words.size() * sizeof(int));
    }
    instance().put({id, words});
}

std::vector<Event> Inbox::take() {
    constexpr int kVolumeChanged = 0x60001;
    ++mLevel;
    const Event mark{kVolumeChanged, {KELU_TV_AUDIO_CHANNEL_24G, mLevel}};
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_24G, mLevel), 0);
    std::vector<Event> events = takeUntil(mark);
    if (!events.empty()) {
        events.pop_back();
    }
    return events;
}

void Inbox::put(Event event) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mEvents.push_back(std::move(event));
    mArrived.notify_all();
}

std::vector<Event> Inbox::takeUntil(const Event& last) {
    std::unique_lock<std::mutex> lock(mMutex);
    const bool came = mArrived.wait_for(
        lock, kPatience, [this, &last] { return std::find(mEvents.begin(), mEvents.end(), last) != mEvents.end(); });
    EXPECT_TRUE(came) << last;
    return std::exchange(mEvents, {});
}

} // namespace kelutv::test
