#pragma once

#include "tools/kelutv/events/EventQueue.h"
#include "tools/process/MessagePipe.h"
#include "tools/process/Worker.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>

namespace kelutv::tool {

/**
 * The events of the television over one connection, which another process has, so that waiting for them can be ended
 * whatever the service does. This process must not use the runtime itself.
 */
class EventFeed {
public:
    /** What becomes of it when there is no service at first. */
    enum class First { MustBeThere, IsAwaited };

    struct News {
        /** That the subscriptions stand; an event; that the service is gone, after which nothing comes. */
        enum class Kind { Begin, Event, End };

        Kind kind;
        ReceivedEvent event;
    };

    /** @param modules to listen to beside those that the library listens to */
    EventFeed(const std::set<std::uint32_t>& modules, First first);
    ~EventFeed();
    EventFeed(const EventFeed&) = delete;
    EventFeed& operator=(const EventFeed&) = delete;

    /** Readable when there is something to take. */
    int fd() const { return mNews.fd(); }

    /** The next piece of news; nothing when there is none yet. Does not wait. @throws ToolError when it failed */
    std::optional<News> take();

private:
    News newsIn(const std::string& message);
    /** What the other process does. */
    int watch(const std::set<std::uint32_t>& modules, First first);

    process::MessagePipe mNews;
    process::Worker mWorker;
    bool mIsWatching = false;
};

} // namespace kelutv::tool
