#pragma once

#include <condition_variable>
#include <mutex>
#include <ostream>
#include <vector>

namespace kelutv::test {

/** An event of the television with its payload as words. */
struct Event {
    int id;
    std::vector<int> words;

    bool operator==(const Event& other) const { return id == other.id && words == other.words; }
};

std::ostream& operator<<(std::ostream& out, const Event& event);

/** What the application's callback was told. */
class Inbox {
public:
    /** The one that fills when `onEvent` is the callback of the library. */
    static Inbox& instance();
    static void onEvent(int id, void* data, unsigned int length, void* prev);

    /** Everything since the last take: a change at the end marks what comes before it as all there is. */
    std::vector<Event> take();

private:
    void put(Event event);
    /** Everything up to this event, which must come. */
    std::vector<Event> takeUntil(const Event& last);

    std::mutex mMutex;
    std::condition_variable mArrived;
    std::vector<Event> mEvents;
    int mLevel = 20;
};

} // namespace kelutv::test
