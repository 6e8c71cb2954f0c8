#include "fuzz/support/Input.h"

#include <algorithm>

namespace kelutv::fuzz {

Bytes Input::take(std::size_t most) {
    const std::size_t count = std::min(most, mLeft);
    Bytes bytes(mData, mData + count);
    mData += count;
    mLeft -= count;
    return bytes;
}

std::string Input::text() {
    const Bytes bytes = take(number<std::uint8_t>());
    return {bytes.begin(), bytes.end()};
}

std::unique_ptr<std::uint8_t[]> exactCopyOf(const Bytes& bytes) {
    std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), copy.get());
    return copy;
}

} // namespace kelutv::fuzz
