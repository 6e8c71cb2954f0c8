#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace kelutv::fuzz {

using Bytes = std::vector<std::uint8_t>;

/** What an input says, read from its start; behind its end everything is 0 or empty. */
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : mData(data), mLeft(size) {}

    bool isEmpty() const { return mLeft == 0; }

    /** The next bytes as a number, little-endian. */
    template <typename Number> Number number() {
        static_assert(std::is_arithmetic_v<Number> && !std::is_same_v<Number, bool>);
        Number value{};
        const Bytes bytes = take(sizeof value);
        if (!bytes.empty()) {
            std::memcpy(&value, bytes.data(), bytes.size());
        }
        return value;
    }

    /** A number around 0, of one byte. */
    int small() {
        const int byte = number<std::uint8_t>();
        return byte < 128 ? byte : byte - 256;
    }

    /** A number below `limit`, of one byte. */
    std::size_t below(std::size_t limit) { return number<std::uint8_t>() % limit; }

    bool flag() { return below(2) == 1; }

    /** At most so many of the next bytes, in memory of exactly their size. */
    Bytes take(std::size_t most);

    /** Bytes behind their number, which has two bytes. */
    Bytes block() { return take(number<std::uint16_t>()); }

    /** Text behind its length, which has one byte. */
    std::string text();

    Bytes rest() { return take(mLeft); }

private:
    const std::uint8_t* mData;
    std::size_t mLeft;
};

/** A copy in memory of exactly the size, which is not null when there are no bytes either. */
std::unique_ptr<std::uint8_t[]> exactCopyOf(const Bytes& bytes);

} // namespace kelutv::fuzz
