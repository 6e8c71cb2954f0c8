#pragma once

#include "tools/kelutv/events/EventQueue.h"
#include "tools/kelutv/text/Hex.h"
#include "wire/events/Event.h"

#include <chrono>
#include <deque>
#include <optional>

namespace kelutv::tool::compliance {

/** The television's events as they come to this process, from the first time that it is asked for to its end. */
class Hearing {
public:
    /** @throws LinkError when there is no service, ToolError when the platform does not let this process listen */
    static Hearing& instance();

    /** Forgets what has come. */
    void clear();

    /** The payload of the next event of this row of the table; nothing when none comes within the time. */
    std::optional<Bytes> next(const wire::Event& event, std::chrono::milliseconds time);

private:
    Hearing() = default;

    std::deque<ReceivedEvent> mCame;
};

} // namespace kelutv::tool::compliance
