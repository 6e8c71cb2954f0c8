#pragma once

#include <chrono>
#include <initializer_list>
#include <optional>

namespace kelutv::process {

using Seconds = std::chrono::duration<double>;

/** When a wait is over; nothing for a wait without end. */
using Deadline = std::optional<std::chrono::steady_clock::time_point>;

/** The time that is so much later than now. */
Deadline deadlineIn(std::optional<Seconds> time);

/**
 * Waits until one of the descriptors can be read or has reached its end.
 *
 * @return false when the time is over before
 */
bool waitToRead(std::initializer_list<int> descriptors, Deadline deadline);

} // namespace kelutv::process
