#pragma once

#include "tools/kelutv/compliance/results/CheckResult.h"

#include <vector>

namespace kelutv::tool::compliance {

/**
 * Requests that only read, each with the answer that the service gives again and again as long as nothing is set; no
 * two have the same answer. Another process asks for them, once.
 *
 * @throws ToolError when it has not done so in time, LinkError when there is no service
 */
const std::vector<Exchange>& knownAnswers();

/** Asks the service, as any client does. @throws LinkError when there is none */
Exchange askAgain(const Exchange& known);

/** Whether the answer is that to what was asked. */
bool isSameAnswer(const Exchange& known, const Exchange& answer);

} // namespace kelutv::tool::compliance
