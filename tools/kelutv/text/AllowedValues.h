#pragma once

#include "tools/kelutv/output/Json.h"
#include "wire/Function.h"

#include <cstdint>
#include <string>

namespace kelutv::tool {

/**
 * The value that a name means (see `wire::Names`).
 *
 * @throws UsageError when it means none or several; it begins with `what` unless that is empty
 */
std::int32_t valueNamed(const wire::Enumeration& names, const std::string& text, const std::string& what = "");

/** What is allowed, in words: `0 to 100`, `one of speaker, headphone`, `true or false`. */
std::string allowedText(const wire::ValueType& values);

/**
 * The same as data: `{"min": 0, "max": 100, "step": 5}` of a number, the step null when it is not known; of an
 * enumeration its values; `[false, true]`; null where anything goes.
 */
Json allowedDocument(const wire::ValueType& values);

/** `{"min": 0, "max": 100, "step": 5}`. */
Json rangeDocument(const Json& least, const Json& greatest, const Json& step);

} // namespace kelutv::tool
