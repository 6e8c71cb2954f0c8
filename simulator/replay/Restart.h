#pragma once

#include <optional>
#include <string>

namespace kelutv::simulator {

/**
 * Ends this service as a death does, for all who are connected to it, and starts the program anew in the same process,
 * with the same arguments. Exits as after a fault when that cannot be done.
 *
 * @param progress what the next service is handed over
 */
[[noreturn]] void restart(const std::string& progress);

/** What the service before this one has handed over; once. Nothing in a program that is the first. */
std::optional<std::string> takeHandedOver();

} // namespace kelutv::simulator
