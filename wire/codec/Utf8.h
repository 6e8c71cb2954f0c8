#pragma once

#include <string>
#include <string_view>

namespace kelutv::wire {

/** UTF-8 from UTF-16; a surrogate without its partner becomes U+FFFD. */
std::string toUtf8(std::u16string_view text);

} // namespace kelutv::wire
