#pragma once

#include <cstdint>
#include <string>

namespace kelutv::tool {

/** The number of bytes that the text of this option gives: `4096`, `64K`, `10M`, `2G`. @throws UsageError */
std::uint64_t sizeOf(const std::string& option, const std::string& text);

} // namespace kelutv::tool
