#pragma once

#include "support/Wire.h"

#include <cstddef>
#include <random>

namespace kelutv::test {

/** Requests of every degree of wrongness; the seed makes them the same in every run. */
class HostileRequests {
public:
    explicit HostileRequests(unsigned int seed) : mRandom(seed) {}

    Bytes next();
    /** A packet of the socket transport around the next request, wrong as well or not. */
    Bytes nextPacket();

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(mRandom); }
    int command();
    Bytes noise(std::size_t length);
    Bytes withTail(Wire request, int longest);
    Bytes damaged(Bytes bytes);

    std::mt19937 mRandom;
};

} // namespace kelutv::test
