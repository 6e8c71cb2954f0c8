#pragma once

#include "tools/kelutv/output/Errors.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * Runs a command line in a process of its own and waits for its end; an interrupt from the keyboard ends only that.
 *
 * @return what it ends with; a failure when a signal ends it
 * @throws ToolError when it cannot be started
 */
Exit runInOwnProcess(std::vector<std::string> words);

} // namespace kelutv::tool
