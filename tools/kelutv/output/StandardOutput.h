#pragma once

#include <string>

namespace kelutv::tool {

/**
 * Writes data to standard output at once. Does nothing once its reader has gone, as `head` does: a command then goes on
 * to its end, so that a change is made whole.
 *
 * @throws ToolError when it cannot be written
 */
void writeData(const std::string& text);

/** Whether nobody reads standard output any more; seen when something is written. */
bool isReaderGone();

} // namespace kelutv::tool
