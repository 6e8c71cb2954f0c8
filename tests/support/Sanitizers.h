#pragma once

#include <string>

namespace kelutv::test {

/** An environment setting for programs with a preloaded library: sanitizers object to one loaded before theirs. */
std::string sanitizerOptions();

} // namespace kelutv::test
