#pragma once

#include "tools/kelutv/compliance/results/Run.h"

#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/**
 * What a run is made with, asked of the service and the machine. This process must not have used the library yet.
 *
 * @param options the words of the command line that choose what is checked
 * @param limit how many seconds an answer may take
 */
Circumstances circumstancesNow(std::vector<std::string> options, double limit);

} // namespace kelutv::tool::compliance
