#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelutv::wire {

/** A number in decimal or, after `0x`, in hexadecimal, that fits into 32 bits. */
std::optional<std::int32_t> int32Of(std::string_view word);

} // namespace kelutv::wire
