#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace kelutv::service {

/** One number or text of a request, of a reply, of an event or of what a television keeps. */
using Value = std::variant<std::int32_t, double, std::string>;

using Values = std::vector<Value>;

} // namespace kelutv::service
