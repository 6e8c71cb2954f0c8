#pragma once

#include "wire/Function.h"

#include <cstdint>
#include <string>

namespace kelutv::tool {

/** The value that a name means (see `wire::Names`). @throws UsageError when it means none or several */
std::int32_t valueNamed(const wire::Enumeration& names, const std::string& text);

/** What is allowed, in words: `0 to 100`, `one of speaker, headphone`, `true or false`. */
std::string allowedText(const wire::ValueType& values);

} // namespace kelutv::tool
