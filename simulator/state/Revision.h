#pragma once

#include <cstdint>

namespace kelutv::simulator {

/** Counts the changes to what the television keeps. */
class Revision {
public:
    void advance() { ++mNumber; }
    std::uint64_t number() const { return mNumber; }

private:
    std::uint64_t mNumber = 0;
};

} // namespace kelutv::simulator
