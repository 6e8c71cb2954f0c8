#pragma once

#include "client/wire/WireTable.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace kelutv::test {

/** Every operation of the catalogue against the literal bytes it must send. */
class WireTest : public ::testing::TestWithParam<const WireOperation*> {};

inline std::vector<const WireOperation*> everyOperation() {
    return Offered<WireOperation>::all<std::vector<const WireOperation*>>();
}

inline std::string operationName(const ::testing::TestParamInfo<const WireOperation*>& info) {
    return info.param->name;
}

} // namespace kelutv::test
