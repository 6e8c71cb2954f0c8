#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace kelutv::wire {

/** One number or text of a request, a reply or the television's state. */
using Value = std::variant<std::int32_t, double, std::string>;

using Values = std::vector<Value>;

/** What a request says: one entry per request item, with several values when the item is a block. */
using Arguments = std::vector<Values>;

} // namespace kelutv::wire
