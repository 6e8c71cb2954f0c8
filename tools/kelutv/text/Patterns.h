#pragma once

#include "wire/text/RequestPattern.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** The patterns that an option was given. @throws UsageError when one of them lets nothing through */
std::vector<wire::RequestPattern> patternsOf(const std::string& option, const std::vector<std::string>& words);

bool matchesAny(const std::vector<wire::RequestPattern>& patterns, const wire::Request& request);

} // namespace kelutv::tool
