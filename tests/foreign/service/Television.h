#pragma once

#include "foreign/service/Memories.h"

#include "wire/Interface.h"
#include "wire/codec/Request.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace foreign {

using Bytes = std::vector<std::uint8_t>;

/** An event to publish. */
struct Event {
    std::uint32_t identifier;
    Bytes payload;
};

/** A television that keeps what is set and knows no more than its table: what it starts with, and its events. */
class Television {
public:
    /** The reply to a request in any form of its token; what a set changes and has an event is published. */
    Bytes answer(const kelutv::wire::Request& request, std::vector<Event>& events);

private:
    using Place = std::pair<const kelutv::wire::StateKey*, kelutv::wire::Values>;

    kelutv::wire::Values kept(const Place& place) const;
    kelutv::wire::Values carryOut(const kelutv::wire::Request& request, std::vector<Event>& events);

    std::map<Place, kelutv::wire::Values> mKept;
    Memories mMemories;
};

} // namespace foreign
