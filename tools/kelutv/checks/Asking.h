#pragma once

#include "tools/kelutv/checks/Finding.h"

#include <cstdint>
#include <functional>

namespace kelutv::tool {

/** The transaction that any object answers with the name of its interface. */
constexpr std::uint32_t kAskForInterface = ('_' << 24) | ('N' << 16) | ('T' << 8) | 'F';

/** Whether the service that was found answers still. */
bool isServiceAlive();

/**
 * What a look at the service finds; one that ends in an error finds that. A request that does not get through is the
 * link's fault only when the service is gone.
 */
Finding askingFinds(const std::function<Finding()>& look);

/** `1.5 ms`. */
std::string millisecondsText(std::chrono::nanoseconds time);

/** The time that something took. */
std::chrono::nanoseconds timeOf(const std::function<void()>& something);

} // namespace kelutv::tool
