#pragma once

#include <cstdint>
#include <string>

namespace kelutv::wire {

/**
 * What the result word of a service is called: `value out of range`, `BAD_VALUE`; empty for 0 and for what has no name.
 *
 * The names are those of the simulated television's refusals and, for numbers that it does not use, of the binder
 * runtime's errors, which services hand on. -1 has none: services give it for any failure.
 */
std::string nameOfResult(std::int32_t result);

/** What the status of a transaction is called: `DEAD_OBJECT`; empty for 0 and for what has no name. */
std::string nameOfStatus(std::int32_t status);

/** The number with its name, if it has one: `-107, value out of range`. */
std::string resultText(std::int32_t result);
std::string statusText(std::int32_t status);

} // namespace kelutv::wire
