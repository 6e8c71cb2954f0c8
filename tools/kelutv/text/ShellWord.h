#pragma once

#include <string>

namespace kelutv::tool {

/** The word as a shell takes it for one: quoted where it needs to be. */
std::string shellWord(const std::string& word);

} // namespace kelutv::tool
