#pragma once

#include "tools/kelutv/output/Json.h"
#include "wire/Function.h"

#include <string>

namespace kelutv::tool {

/**
 * What is known of a number's values, all of it unknown for a number that goes in and of which nothing is known. Null
 * for what is no number, has names, or counts what goes in with it.
 */
const wire::Range* rangeOf(const wire::ValueType& values, wire::Direction direction);

/**
 * What is known of a range: `values 0 to ?, step 5, unit ms, default ?`, or without its ends where both are known,
 * which `allowedText` says. `?` stands for what is not known.
 */
std::string rangeText(const wire::Range& range);

/** Adds `range` as `{"min": 0, "max": 100, "step": 5}`, `unit` and `default`, null where they are not known. */
void addRange(Json& document, const wire::Range& range);

} // namespace kelutv::tool
