#include "wire/codec/ByteReader.h"

#include <algorithm>
#include <cstring>

namespace kelutv::wire {

namespace {

constexpr std::size_t padded(std::size_t length) { return (length + 3) & ~std::size_t{3}; }

} // namespace

std::optional<std::string_view> ByteReader::readBlock(std::size_t length) {
    if (length > available() || padded(length) > available()) {
        return std::nullopt;
    }
    const auto* const start = reinterpret_cast<const char*>(mBytes) + mPosition;
    mPosition += padded(length);
    return std::string_view(start, length);
}

std::optional<std::string_view> ByteReader::readText() {
    const std::string_view rest(reinterpret_cast<const char*>(mBytes) + mPosition, available());
    const std::size_t length = rest.find('\0');
    if (length == std::string_view::npos) {
        return std::nullopt;
    }
    // The last text may lack its padding.
    mPosition += std::min(padded(length + 1), available());
    return rest.substr(0, length);
}

std::optional<std::u16string> ByteReader::readText16() {
    const std::size_t start = mPosition;
    std::int32_t units = -1;
    if (read(units) && units >= 0 && static_cast<std::size_t>(units) < available()) {
        const auto count = static_cast<std::size_t>(units);
        if (const auto block = readBlock((count + 1) * sizeof(char16_t))) {
            std::u16string text(count, u'\0');
            std::memcpy(text.data(), block->data(), count * sizeof(char16_t));
            return text;
        }
    }
    mPosition = start;
    return std::nullopt;
}

bool ByteReader::readBytes(void* number, std::size_t length) {
    const auto block = readBlock(length);
    if (block) {
        std::memcpy(number, block->data(), length);
    }
    return block.has_value();
}

} // namespace kelutv::wire
