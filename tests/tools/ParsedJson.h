#pragma once

#include "tools/kelutv/output/Json.h"

#include <ostream>
#include <string>

namespace kelutv::tool {

/** How a failing test shows a value. */
inline void PrintTo(const Json& value, std::ostream* output) { *output << value.dump(); }

} // namespace kelutv::tool

namespace kelutv::test {

/** The value of a JSON text, members in the order of their names. @throws std::exception when it is not JSON */
tool::Json parsedJson(const std::string& text);

} // namespace kelutv::test
