#pragma once

#include <cstdint>

namespace android {

using status_t = std::int32_t;

enum {
    NO_ERROR = 0,
    DEAD_OBJECT = -32,

    /** The platform's own, none of which has the number of another platform's. */
    NOT_SENT = -9001,
    NOT_THERE = -9002,
    NO_ROOM = -9003,
    NOT_SUPPORTED = -9004,
    NOT_LINKED = -9005,
};

} // namespace android
