#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/results/CheckResult.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace kelutv::test {

using Judged = std::vector<tool::compliance::CheckResult>;
using Names = std::set<std::string>;

/** Keeps to itself what libraries and services log, of which wrong requests make very much. */
void hushLog();

/** What came of the checks that the words choose. */
Judged judged(const std::vector<std::string>& words);

/** What came of these checks. */
Judged resultsOf(const tool::compliance::Checks& checks);

/** The identifiers of those with this verdict. */
Names identifiers(const Judged& results, tool::compliance::Verdict verdict);

/** The aspects of those that did not pass, with their verdicts: `form.payload failed`; of one function or of all. */
Names aspectsNotPassed(const Judged& results, const std::string& function = "");

/** How many of each aspect have failed. */
std::map<std::string, int> failuresByAspect(const Judged& results);

} // namespace kelutv::test
