#pragma once

#include <cstddef>
#include <cstdint>

namespace keluem {

/** Room of the runtime directory in which every subscribed process has a listening socket. */
constexpr const char* kEventRoom = "events";

constexpr const char* kLogTag = "keluem";

/** An event as it travels: one packet, the identifier followed by the payload. */
struct Event {
    std::uint32_t id;
    const void* payload;
    std::size_t length;
};

constexpr std::size_t kEventIdSize = sizeof(Event::id);

constexpr std::uint32_t moduleOf(std::uint32_t eventId) { return eventId & 0xFFFF0000; }

} // namespace keluem
