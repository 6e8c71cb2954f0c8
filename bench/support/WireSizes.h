#pragma once

#include <cstddef>

namespace kelutv::bench {

/** Bytes in front of every message on a socket. */
constexpr size_t kMessageHead = 20;
/** Bytes of a request up to its arguments: interface token and command. */
constexpr size_t kRequestHead = 56 + 4;

/** Bytes of a setVolume request, and of its reply. */
constexpr size_t kSetVolumeRequest = kRequestHead + 2 * 4;
constexpr size_t kStatusReply = 4;

/** Bytes of a request for the values of an item, and of its reply. */
constexpr size_t kItemRequest = kRequestHead + 3 * 4;
constexpr size_t kItemReply = 4 + 255 * 4;

} // namespace kelutv::bench
