#pragma once

#include "tools/kelutv/compliance/results/CheckResult.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace kelutv::test {

using Judged = std::vector<tool::compliance::CheckResult>;
using Names = std::set<std::string>;

/** What came of the checks that the words choose, each answer within so many seconds. */
Judged judged(const std::vector<std::string>& words, double limit = 5);

/** The identifiers of those with this verdict. */
Names identifiers(const Judged& results, tool::compliance::Verdict verdict);

/** The aspects of those that did not pass, `form.payload`, with their verdicts: `form.payload failed`. */
Names aspectsNotPassed(const Judged& results);

/** How many of each aspect have failed. */
std::map<std::string, int> failuresByAspect(const Judged& results);

} // namespace kelutv::test
