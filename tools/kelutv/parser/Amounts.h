#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace kelutv::tool {

using Seconds = std::chrono::duration<double>;

/** How much time the text of this option gives, `least` to `most`. @throws UsageError */
Seconds secondsOf(const std::string& option, const std::string& text, Seconds least = Seconds(0.001),
                  Seconds most = Seconds(1e6));

/** The number of seconds as `secondsOf` reads it. */
std::string secondsText(Seconds time);

/** The time that KELUTV_TIMEOUT gives; nothing when that is not set or empty. @throws UsageError */
std::optional<Seconds> timeOfEnvironment();

/** Makes this the time of the environment. */
void putIntoEnvironment(Seconds time);

/** How many the text of this option says, 1 to 1000000000. @throws UsageError */
std::size_t countOf(const std::string& option, const std::string& text);

} // namespace kelutv::tool
