#pragma once

#include "wire/Function.h"

#include <string>
#include <vector>

namespace kelutv::test {

/** Arguments that a function takes, one for each parameter that is given but lengths: different numbers, names, texts.
 */
std::vector<std::string> sampleArguments(const wire::Function& function);

} // namespace kelutv::test
