#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kelutv::tool {

/** SipHash-2-4: numbers that nobody can tell from chance, or lead back to what they were made of, without the key. */
class KeyedHash {
public:
    /** With a key that nobody knows. @throws std::system_error when the system gives none */
    KeyedHash();
    /** With the key that this text makes, so that another run gives the same. */
    explicit KeyedHash(const std::string& key);
    explicit KeyedHash(const std::array<std::uint64_t, 2>& key) : mKey(key) {}

    std::uint64_t of(std::string_view text) const;

private:
    std::array<std::uint64_t, 2> mKey;
};

} // namespace kelutv::tool
