#include "wire/codec/ValueReader.h"

#include "wire/codec/Utf8.h"

namespace kelutv::wire {

using android::Parcel;

namespace {

template <typename Number> std::optional<Values> readNumbers(const Parcel& data, std::size_t count) {
    if (count > data.dataAvail() / sizeof(Number)) {
        return std::nullopt;
    }
    Values numbers;
    for (std::size_t i = 0; i < count; ++i) {
        Number number{};
        data.read(&number, sizeof(number));
        numbers.emplace_back(number);
    }
    return numbers;
}

std::optional<Values> readBytes(const Parcel& data, std::size_t length) {
    const auto* const bytes = static_cast<const char*>(data.readInplace(length));
    if (bytes == nullptr && length != 0) {
        return std::nullopt;
    }
    return Values{std::string(bytes, bytes + length)};
}

std::optional<Values> readText(const Parcel& data) {
    const char* const text = data.readCString();
    return text != nullptr ? std::optional(Values{std::string(text)}) : std::nullopt;
}

std::optional<Values> readText16(const Parcel& data) {
    std::size_t length = 0;
    const char16_t* const units = data.readString16Inplace(&length);
    return units != nullptr ? std::optional(Values{toUtf8({units, length})}) : std::nullopt;
}

} // namespace

std::optional<Values> readValues(const Parcel& data, Encoding kind, std::size_t count) {
    switch (kind) {
    case Encoding::CString:
        return readText(data);
    case Encoding::String16:
        return readText16(data);
    case Encoding::Bytes:
        return readBytes(data, count);
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
