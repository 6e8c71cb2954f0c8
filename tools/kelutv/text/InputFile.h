#pragma once

#include "tools/kelutv/text/Hex.h"

#include <string>

namespace kelutv::tool {

/** The content of a file, at most 16 MiB. @throws UsageError when it cannot be read or has more */
Bytes bytesOfFile(const std::string& path);

/** A whole file, or standard input for `-`, at most 16 MiB. @throws UsageError when it cannot be read or has more */
Bytes bytesOfInput(const std::string& path);

/**
 * The text that an argument stands for: itself, standard input for `-`, or the content of a file for `@FILE`.
 *
 * @throws UsageError when the file cannot be read
 */
std::string textOfArgument(const std::string& argument);

} // namespace kelutv::tool
