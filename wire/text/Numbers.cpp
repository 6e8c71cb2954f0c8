#include "wire/text/Numbers.h"

#include <charconv>
#include <system_error>

namespace kelutv::wire {

namespace {

template <typename Number> std::optional<Number> numberOf(std::string_view digits, int base) {
    Number number{};
    const char* const end = digits.data() + digits.size();
    const auto [last, error] = std::from_chars(digits.data(), end, number, base);
    return error == std::errc() && last == end ? std::optional<Number>(number) : std::nullopt;
}

} // namespace

std::optional<std::int32_t> int32Of(std::string_view word) {
    if (word.substr(0, 2) != "0x" && word.substr(0, 2) != "0X") {
        return numberOf<std::int32_t>(word, 10);
    }
    const auto number = numberOf<std::uint32_t>(word.substr(2), 16);
    return number ? std::optional(static_cast<std::int32_t>(*number)) : std::nullopt;
}

} // namespace kelutv::wire
