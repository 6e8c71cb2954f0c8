#pragma once

#include "tools/kelutv/parser/Amounts.h"

namespace kelutv::tool {

/**
 * Has the rest of the command done by a worker that is given up when the time is over. It returns in the worker alone;
 * this process must have used nothing of the runtime.
 *
 * @throws ToolError in this process, with the exit code of the worker; with a message when the time is over. When a
 * signal ended the worker it ends this process, too.
 */
void continueInWorkerFor(Seconds time);

/** `the time was over after 0.2 s`, the text of the message. */
std::string timeOverText(Seconds time);

} // namespace kelutv::tool
