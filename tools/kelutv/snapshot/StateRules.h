#pragma once

#include "wire/Function.h"
#include "wire/Interface.h"

#include <string>

namespace kelutv::tool {

/** What the only request of a function does with a state; null when it sends none, several, or any item. */
const wire::StateRule* ruleOf(const wire::Function& function);

/** The short name, or the full one where the short one is that of several functions. */
std::string nameOf(const wire::Function& function);

} // namespace kelutv::tool
