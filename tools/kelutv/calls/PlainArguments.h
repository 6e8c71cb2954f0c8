#pragma once

#include "wire/Function.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** The text of the plainest argument of a parameter: the first value that it may have, an empty text, a zero. */
std::string plainArgument(const wire::Parameter& parameter);

/** One for each parameter that is given, lengths left out. */
std::vector<std::string> plainArguments(const wire::Function& function);

} // namespace kelutv::tool
