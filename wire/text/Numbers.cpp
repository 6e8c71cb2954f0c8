#include "wire/text/Numbers.h"

namespace kelutv::wire {

std::optional<std::int32_t> int32Of(std::string_view word) {
    if (word.substr(0, 2) != "0x" && word.substr(0, 2) != "0X") {
        return wholeNumber<std::int32_t>(word);
    }
    const auto number = wholeNumber<std::uint32_t>(word.substr(2), 16);
    return number ? std::optional(static_cast<std::int32_t>(*number)) : std::nullopt;
}

} // namespace kelutv::wire
