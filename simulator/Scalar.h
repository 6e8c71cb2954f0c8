#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace simulator {

/** One number or text of a request, a reply or the television's state. */
using Scalar = std::variant<std::int32_t, double, std::string>;

using Scalars = std::vector<Scalar>;

/** What a request says: one entry per request item, with several scalars when the item is a block. */
using Arguments = std::vector<Scalars>;

} // namespace simulator
