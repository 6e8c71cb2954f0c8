#include "tools/kelutv/recordings/KeyedHash.h"

#include <sys/random.h>

#include <cerrno>
#include <cstddef>
#include <system_error>

namespace kelutv::tool {

namespace {

constexpr std::uint64_t rotated(std::uint64_t value, unsigned int bits) { return value << bits | value >> (64 - bits); }

/** Of eight bytes or fewer, the first lowest. */
std::uint64_t wordOf(std::string_view bytes) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        word |= std::uint64_t{static_cast<std::uint8_t>(bytes[i])} << 8 * i;
    }
    return word;
}

class State {
public:
    explicit State(const std::array<std::uint64_t, 2>& key)
        : mWords{key[0] ^ 0x736f6d6570736575U, key[1] ^ 0x646f72616e646f6dU, key[0] ^ 0x6c7967656e657261U,
                 key[1] ^ 0x7465646279746573U} {}

    void add(std::uint64_t word) {
        mWords[3] ^= word;
        mix(2);
        mWords[0] ^= word;
    }

    std::uint64_t finish() {
        mWords[2] ^= 0xff;
        mix(4);
        return mWords[0] ^ mWords[1] ^ mWords[2] ^ mWords[3];
    }

private:
    void mix(int rounds) {
        auto& [a, b, c, d] = mWords;
        for (int i = 0; i < rounds; ++i) {
            a += b;
            b = rotated(b, 13) ^ a;
            a = rotated(a, 32);
            c += d;
            d = rotated(d, 16) ^ c;
            a += d;
            d = rotated(d, 21) ^ a;
            c += b;
            b = rotated(b, 17) ^ c;
            c = rotated(c, 32);
        }
    }

    std::array<std::uint64_t, 4> mWords;
};

} // namespace

KeyedHash::KeyedHash() : mKey{} {
    if (::getrandom(mKey.data(), sizeof(mKey), 0) != static_cast<ssize_t>(sizeof(mKey))) {
        throw std::system_error(errno, std::generic_category(), "cannot make a key");
    }
}

KeyedHash::KeyedHash(const std::string& key) : mKey{} {
    mKey = {KeyedHash(std::array<std::uint64_t, 2>{0, 0}).of(key),
            KeyedHash(std::array<std::uint64_t, 2>{0, 1}).of(key)};
}

std::uint64_t KeyedHash::of(std::string_view text) const {
    State state(mKey);
    std::size_t at = 0;
    for (; text.size() - at >= sizeof(std::uint64_t); at += sizeof(std::uint64_t)) {
        state.add(wordOf(text.substr(at, sizeof(std::uint64_t))));
    }
    state.add(wordOf(text.substr(at)) | std::uint64_t{text.size()} << 56);
    return state.finish();
}

} // namespace kelutv::tool
