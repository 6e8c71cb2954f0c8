#pragma once

#include <cstddef>

namespace kelutv::bench {

/** Bytes of one setVolume request on the socket: message head, interface token, command, two arguments. */
constexpr size_t kSetVolumeRequestSize = 16 + 56 + 4 + 8;
/** Bytes of its reply: message head, result. */
constexpr size_t kStatusReplySize = 16 + 4;

} // namespace kelutv::bench
