#pragma once

#include "tools/kelutv/output/Json.h"
#include "wire/Function.h"

#include <string>

namespace kelutv::tool {

/** What a call does to a television, in words; `?` stands for what is not known. */
std::string effectText(const wire::Effect& effect);

/** `kind` and `dangerous`; of a change `kept`, of a set `back`; null for what is not known, or not there. */
Json effectDocument(const wire::Effect& effect);

} // namespace kelutv::tool
