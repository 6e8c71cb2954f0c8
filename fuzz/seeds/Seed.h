#pragma once

#include "fuzz/support/Input.h"

#include <binder/Parcel.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

namespace kelutv::fuzz {

/** An input as `Input` reads it. */
class Seed {
public:
    template <typename Number> Seed& number(Number value) {
        static_assert(std::is_arithmetic_v<Number>);
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(&value);
        mBytes.insert(mBytes.end(), bytes, bytes + sizeof value);
        return *this;
    }
    Seed& byte(std::size_t value) { return number(static_cast<std::uint8_t>(value)); }
    Seed& bytes(const Bytes& more) {
        mBytes.insert(mBytes.end(), more.begin(), more.end());
        return *this;
    }
    Seed& block(const Bytes& more) { return number(static_cast<std::uint16_t>(more.size())).bytes(more); }
    Seed& text(const std::string& text) { return byte(text.size()).bytes({text.begin(), text.end()}); }

    const Bytes& bytes() const { return mBytes; }

private:
    Bytes mBytes;
};

using Seeds = std::vector<Bytes>;

Bytes bytesOf(const android::Parcel& parcel);

/** @name What a target begins with, made of the tables of the interface @{ */
Seeds parcelSeeds();
Seeds commandCallSeeds();
Seeds functionSeeds();
Seeds requestSeeds();
Seeds decodeSeeds();
Seeds stateSeeds();
Seeds controlSeeds();
Seeds eepSeeds();
Seeds driverSeeds();
Seeds serviceManagerSeeds();
Seeds socketClientSeeds();
Seeds socketServerSeeds();
Seeds eventPublisherSeeds();
Seeds eventSubscriberSeeds();
/** @} */

/** The numbers of the commands, as they stand in a request. */
Seeds commandWords();

/** The names that texts use: of commands, states, enumerators, verbs. */
std::vector<std::string> names();

} // namespace kelutv::fuzz
