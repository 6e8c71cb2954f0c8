#include "tools/kelutv/compliance/results/Run.h"

#include <algorithm>

namespace kelutv::tool::compliance {

namespace {

std::vector<std::string> distinct(const std::vector<CheckResult>& results, std::string CheckResult::*member) {
    std::vector<std::string> texts;
    for (const CheckResult& result : results) {
        if (std::find(texts.begin(), texts.end(), result.*member) == texts.end()) {
            texts.push_back(result.*member);
        }
    }
    return texts;
}

} // namespace

std::size_t countOf(const std::vector<CheckResult>& results, Verdict verdict) {
    return static_cast<std::size_t>(std::count_if(
        results.begin(), results.end(), [verdict](const CheckResult& each) { return each.verdict == verdict; }));
}

std::vector<std::string> modulesOf(const std::vector<CheckResult>& results) {
    return distinct(results, &CheckResult::module);
}

std::vector<std::string> familiesOf(const std::vector<CheckResult>& results) {
    return distinct(results, &CheckResult::family);
}

} // namespace kelutv::tool::compliance
