#include "ScalarReader.h"

#include "Utf8.h"

namespace simulator {

using android::Parcel;

namespace {

template <typename Number> std::optional<Scalars> readNumbers(const Parcel& data, std::size_t count) {
    if (count > data.dataAvail() / sizeof(Number)) {
        return std::nullopt;
    }
    Scalars numbers;
    for (std::size_t i = 0; i < count; ++i) {
        Number number{};
        data.read(&number, sizeof(number));
        numbers.emplace_back(number);
    }
    return numbers;
}

std::optional<Scalars> readBytes(const Parcel& data, std::size_t length) {
    const auto* const bytes = static_cast<const char*>(data.readInplace(length));
    if (bytes == nullptr && length != 0) {
        return std::nullopt;
    }
    return Scalars{std::string(bytes, bytes + length)};
}

std::optional<Scalars> readText(const Parcel& data) {
    const char* const text = data.readCString();
    return text != nullptr ? std::optional(Scalars{std::string(text)}) : std::nullopt;
}

std::optional<Scalars> readText16(const Parcel& data) {
    std::size_t length = 0;
    const char16_t* const units = data.readString16Inplace(&length);
    return units != nullptr ? std::optional(Scalars{toUtf8({units, length})}) : std::nullopt;
}

} // namespace

std::optional<Scalars> readScalars(const Parcel& data, Kind kind, std::size_t count) {
    switch (kind) {
    case Kind::CString:
        return readText(data);
    case Kind::String16:
        return readText16(data);
    case Kind::Bytes:
        return readBytes(data, count);
    case Kind::Double:
    case Kind::Doubles:
        return readNumbers<double>(data, count);
    case Kind::Int32:
    case Kind::Ints:
        break;
    }
    return readNumbers<std::int32_t>(data, count);
}

} // namespace simulator
