#pragma once

#include "tools/kelutv/output/Output.h"

#include <string>

namespace kelutv::tool {

/**
 * Reads a whole recording and says what it holds and what is wrong with it: lines that are none, numbers that do not
 * ascend, decoded forms that the bytes do not have.
 *
 * @return Failure when something is wrong. That its end is missing is not
 */
Exit checkRecording(const std::string& path, const Output& output);

} // namespace kelutv::tool
