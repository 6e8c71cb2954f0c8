#pragma once

#include "client/wire/WireTable.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::test {

/** A call that sets something, and what the getter shows from then on. */
struct Step {
    std::string (*set)();
    const char* shown;
};

struct Pair {
    const char* name;
    Rows<Step> steps;
    std::string (*get)();
};

/** Every set operation of the catalogue with every get operation of the same state. */
class Pairs : public ::testing::TestWithParam<Pair> {};

std::string pairName(const ::testing::TestParamInfo<Pair>& info);

void PrintTo(const Pair& pair, std::ostream* out);

} // namespace kelutv::test
