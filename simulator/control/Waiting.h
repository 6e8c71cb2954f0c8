#pragma once

#include <poll.h>

#include <cstddef>

namespace kelutv::simulator {

/**
 * Waits as poll(2) does; false when that fails, as it does without memory or with a limit of descriptors below their
 * number. A tenth of a second is over then, so that asking again does not spin.
 */
bool waitForAny(pollfd* waits, std::size_t count, int milliseconds);

} // namespace kelutv::simulator
