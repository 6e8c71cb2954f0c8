#include "tools/kelutv/calls/Scalars.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Words.h"

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

[[noreturn]] void refuse(const ValueType& type, const std::string& text) {
    throw UsageError("'" + text + "' is not " + allowedText(type));
}

bool isHexadecimal(const std::string& text) {
    const std::size_t start = !text.empty() && text[0] == '-' ? 1 : 0;
    return lowered(text.substr(start, 2)) == "0x";
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
std::int32_t intOf(const ValueType& type, const std::string& text) {
    const auto number = numberOf(text);
    if (!number) {
        if (type.names != nullptr) {
            return enumeratorNamed(*type.names, text).value;
        }
        refuse(type, text);
    }
    const std::int64_t most = isHexadecimal(text) ? std::numeric_limits<std::uint32_t>::max() : Limits::max();
    if (*number < Limits::min() || *number > most) {
        throw UsageError("'" + text + "' does not fit into 32 bits");
    }
    const auto value = static_cast<std::int32_t>(*number);
    if (type.bounded && (value < type.low || value > type.high)) {
        refuse(type, text);
    }
    return value;
}

std::uint32_t unsignedOf(const ValueType& type, const std::string& text) {
    const auto number = numberOf(text);
    const std::int64_t most = type.scalar == Scalar::Byte ? std::numeric_limits<std::uint8_t>::max()
                                                          : std::numeric_limits<std::uint32_t>::max();
    if (!number || *number < 0 || *number > most) {
        refuse(type, text);
    }
    return static_cast<std::uint32_t>(*number);
}

bool flagOf(const ValueType& type, const std::string& text) {
    static constexpr std::array<const char*, 4> kYes{"true", "on", "1", "yes"};
    static constexpr std::array<const char*, 4> kNo{"false", "off", "0", "no"};
    const std::string word = lowered(text);
    const bool isYes = std::find(kYes.begin(), kYes.end(), word) != kYes.end();
    if (!isYes && std::find(kNo.begin(), kNo.end(), word) == kNo.end()) {
        refuse(type, text);
    }
    return isYes;
}

double doubleOf(const ValueType& type, const std::string& text) {
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

std::size_t sizeOf(Scalar scalar) {
    switch (scalar) {
    case Scalar::Double:
        return sizeof(double);
    case Scalar::Bool:
    case Scalar::Char:
    case Scalar::Byte:
        return 1;
    case Scalar::Int:
    case Scalar::Unsigned:
        break;
    }
    return sizeof(std::int32_t);
}

void writeScalar(const ValueType& type, const std::string& text, std::uint8_t* to) {
    switch (type.scalar) {
    case Scalar::Int:
        put(intOf(type, text), to);
        break;
    case Scalar::Unsigned:
        put(unsignedOf(type, text), to);
        break;
    case Scalar::Bool:
        put(static_cast<std::uint8_t>(flagOf(type, text)), to);
        break;
    case Scalar::Double:
        put(doubleOf(type, text), to);
        break;
    case Scalar::Char:
    case Scalar::Byte:
        put(static_cast<std::uint8_t>(unsignedOf(type, text)), to);
        break;
    }
}

Json readScalar(Scalar scalar, const std::uint8_t* from) {
    switch (scalar) {
    case Scalar::Unsigned:
        return get<std::uint32_t>(from);
    case Scalar::Bool:
        return *from != 0;
    case Scalar::Double:
        return get<double>(from);
    case Scalar::Char:
    case Scalar::Byte:
        return *from;
    case Scalar::Int:
        break;
    }
    return get<std::int32_t>(from);
}

bool isUntouched(const std::uint8_t* from, std::size_t size) {
    return std::all_of(from, from + size, [](std::uint8_t byte) { return byte == kUntouched; });
}

} // namespace kelutv::tool
