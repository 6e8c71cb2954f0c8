#pragma once

#include "support/RuntimeDir.h"

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::test {

struct RecordedEvent {
    unsigned int id;
    std::string payload;
    bool nullPayload;
    bool nullPrevious;
    bool aligned;
};

/** The runtime directory of this test program. Made at the first call, removed at the end. */
const RuntimeDir& runtimeDir();

/** The room of the runtime directory in which the subscribers' sockets are. */
std::string eventRoom();

/** The names in the event room. */
std::vector<std::string> eventEntries();

/** The path of this process's entry; empty when there is none. */
std::string ownEntry();

/** How many entries in the event room are of one process. */
std::size_t entriesOf(pid_t process);

/** Subscribes this process to one module, records its events, and unsubscribes at the end. */
class EventRecorder {
public:
    explicit EventRecorder(unsigned int module);
    ~EventRecorder();
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;

    int status() const { return mStatus; }

    /** Waits until that many events have come since the last take; gives all there are. */
    std::vector<RecordedEvent> take(std::size_t count);

    /** As `take`, the identifiers only. */
    std::vector<unsigned int> takeIds(std::size_t count);

private:
    unsigned int mModule;
    int mStatus;
};

} // namespace kelutv::test
