#pragma once

#include "tools/kelutv/compliance/framework/Check.h"

#include <functional>
#include <vector>

namespace kelutv::tool::compliance {

/** Hears of each check when it is made. */
using Tell = std::function<void(const CheckResult& result)>;

/**
 * Makes the checks one after the other, in a process that is given up when an answer takes too long. Checks that are
 * not made since the service is gone, or answers nothing any longer, are inconclusive and say so. This process must not
 * have used the library yet.
 *
 * @param limit how many seconds an answer may take
 * @throws LinkError when there is no service to begin with
 */
std::vector<CheckResult> runChecks(const Checks& checks, double limit, const Tell& tell);

/** Whether checks were not made since the service was gone, or answered nothing any longer. */
bool hasEndedEarly(const std::vector<CheckResult>& results);

} // namespace kelutv::tool::compliance
