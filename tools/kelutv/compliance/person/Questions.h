#pragma once

#include <string>

namespace kelutv::tool::compliance {

/** What a person said. */
enum class Said { yes, no, skip };

/** Asks on standard error and reads a line from standard input, until it is y, n or s. The end of it is s. */
Said askPerson(const std::string& question);

} // namespace kelutv::tool::compliance
