#pragma once

#include "torture/operations/Operation.h"

namespace kelutv::test {

/** Operations on the simulated television whose results stay: it answers from its defaults, and takes what it has. */
std::vector<Operation> televisionOperations();

} // namespace kelutv::test
