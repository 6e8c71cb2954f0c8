#include "wire/codec/ValueReader.h"

#include "wire/codec/Utf8.h"

namespace kelutv::wire {

namespace {

template <typename Number> std::optional<Values> readNumbers(ByteReader& data, std::size_t count) {
    if (count > data.available() / sizeof(Number)) {
        return std::nullopt;
    }
    Values numbers;
    for (std::size_t i = 0; i < count; ++i) {
        Number number{};
        data.read(number);
        numbers.emplace_back(number);
    }
    return numbers;
}

std::optional<Values> valuesOf(const std::optional<std::string_view>& text) {
    return text ? std::optional(Values{std::string(*text)}) : std::nullopt;
}

std::optional<Values> readText16(ByteReader& data) {
    const auto text = data.readText16();
    return text ? std::optional(Values{toUtf8(*text)}) : std::nullopt;
}

} // namespace

std::optional<Values> readValues(ByteReader& data, Encoding kind, std::size_t count) {
    switch (kind) {
    case Encoding::CString:
        return valuesOf(data.readText());
    case Encoding::String16:
        return readText16(data);
    case Encoding::Bytes:
        return valuesOf(data.readBlock(count));
    case Encoding::Double:
    case Encoding::Doubles:
        return readNumbers<double>(data, count);
    case Encoding::Int32:
    case Encoding::Ints:
        break;
    }
    return readNumbers<std::int32_t>(data, count);
}

} // namespace kelutv::wire
