#include "tools/kelutv/calls/Scalars.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/AllowedValues.h"
#include "wire/text/Letters.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>

namespace kelutv::tool {

namespace {

using Limits = std::numeric_limits<std::int32_t>;

[[noreturn]] void refuse(const wire::ValueType& type, const std::string& text) {
    throw UsageError("'" + wire::shown(text) + "' is not " + allowedText(type));
}

bool isHexadecimal(const std::string& text) {
    const std::size_t start = !text.empty() && text[0] == '-' ? 1 : 0;
    return wire::lowered(text.substr(start, 2)) == "0x";
}

/** A number as it is written: decimal, or hexadecimal after 0x. */
std::optional<std::int64_t> numberOf(const std::string& text) {
    char* end = nullptr;
    errno = 0;
    const long long number = std::strtoll(text.c_str(), &end, isHexadecimal(text) ? 16 : 10);
    const bool isWhole = !text.empty() && std::strchr("-0123456789", text[0]) != nullptr && *end == '\0';
    return isWhole && errno == 0 ? std::optional<std::int64_t>(number) : std::nullopt;
}

/** Hexadecimal numbers may use all 32 bits of an int. */
std::int32_t intOf(const wire::ValueType& type, const std::string& text) {
    const auto number = numberOf(text);
    if (!number) {
        if (type.names != nullptr) {
            return valueNamed(*type.names, text);
        }
        refuse(type, text);
    }
    const std::int64_t most = isHexadecimal(text) ? std::numeric_limits<std::uint32_t>::max() : Limits::max();
    if (*number < Limits::min() || *number > most) {
        throw UsageError("'" + wire::shown(text) + "' does not fit into 32 bits");
    }
    const auto value = static_cast<std::int32_t>(*number);
    const wire::Range* const range = type.range;
    if (range != nullptr && range->isBounded() && (value < *range->least || value > *range->greatest)) {
        refuse(type, text);
    }
    return value;
}

std::uint32_t unsignedOf(const wire::ValueType& type, const std::string& text) {
    const auto number = numberOf(text);
    const std::int64_t most = type.scalar == wire::ScalarType::Byte ? std::numeric_limits<std::uint8_t>::max()
                                                                    : std::numeric_limits<std::uint32_t>::max();
    if (!number || *number < 0 || *number > most) {
        refuse(type, text);
    }
    return static_cast<std::uint32_t>(*number);
}

bool flagOf(const wire::ValueType& type, const std::string& text) {
    static constexpr std::array<const char*, 4> kYes{"true", "on", "1", "yes"};
    static constexpr std::array<const char*, 4> kNo{"false", "off", "0", "no"};
    const std::string word = wire::lowered(text);
    const bool isYes = std::find(kYes.begin(), kYes.end(), word) != kYes.end();
    if (!isYes && std::find(kNo.begin(), kNo.end(), word) == kNo.end()) {
        refuse(type, text);
    }
    return isYes;
}

double doubleOf(const wire::ValueType& type, const std::string& text) {
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || std::strchr("+-.0123456789", text[0]) == nullptr) {
        refuse(type, text);
    }
    return number;
}

template <typename T> void put(T value, std::uint8_t* to) { std::memcpy(to, &value, sizeof value); }

template <typename T> T get(const std::uint8_t* from) {
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

} // namespace

wire::ValueType typeOf(const wire::Field& field) {
    return {wire::ValueKind::Single, field.scalar, field.names, nullptr, field.range};
}

std::size_t sizeOf(wire::ScalarType scalar) {
    switch (scalar) {
    case wire::ScalarType::Double:
        return sizeof(double);
    case wire::ScalarType::Bool:
    case wire::ScalarType::Char:
    case wire::ScalarType::Byte:
        return 1;
    case wire::ScalarType::Int:
    case wire::ScalarType::Unsigned:
        break;
    }
    return sizeof(std::int32_t);
}

void writeScalar(const wire::ValueType& type, const std::string& text, std::uint8_t* to) {
    switch (type.scalar) {
    case wire::ScalarType::Int:
        put(intOf(type, text), to);
        break;
    case wire::ScalarType::Unsigned:
        put(unsignedOf(type, text), to);
        break;
    case wire::ScalarType::Bool:
        put(static_cast<std::uint8_t>(flagOf(type, text)), to);
        break;
    case wire::ScalarType::Double:
        put(doubleOf(type, text), to);
        break;
    case wire::ScalarType::Char:
    case wire::ScalarType::Byte:
        put(static_cast<std::uint8_t>(unsignedOf(type, text)), to);
        break;
    }
}

Json readScalar(wire::ScalarType scalar, const std::uint8_t* from) {
    switch (scalar) {
    case wire::ScalarType::Unsigned:
        return get<std::uint32_t>(from);
    case wire::ScalarType::Bool:
        return *from != 0;
    case wire::ScalarType::Double:
        return get<double>(from);
    case wire::ScalarType::Char:
    case wire::ScalarType::Byte:
        return *from;
    case wire::ScalarType::Int:
        break;
    }
    return get<std::int32_t>(from);
}

bool isUntouched(const std::uint8_t* from, std::size_t size) {
    return std::all_of(from, from + size, [](std::uint8_t byte) { return byte == kUntouched; });
}

} // namespace kelutv::tool
