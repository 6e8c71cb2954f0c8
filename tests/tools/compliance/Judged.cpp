#include "tools/compliance/Judged.h"

#include "tools/kelutv/compliance/Families.h"
#include "tools/kelutv/compliance/Runner.h"

#include <cstdlib>

namespace kelutv::test {

using tool::compliance::CheckResult;
using tool::compliance::Verdict;

namespace {

/** `refusal.range` of `refusal.audio.setVolume.range.vol`. */
std::string aspectOf(const CheckResult& result) {
    const std::string ranges = ".range.";
    const std::size_t range = result.id.find(ranges);
    return result.family + (range != std::string::npos ? ".range" : result.id.substr(result.id.rfind('.')));
}

} // namespace

void hushLog() { ::setenv("KQLOG_LEVEL", "s", 1); }

Judged judged(const std::vector<std::string>& words) { return resultsOf(tool::compliance::chosenChecks(words, {})); }

Judged resultsOf(const tool::compliance::Checks& checks) {
    constexpr double kLimit = 5;
    return tool::compliance::runChecks(checks, kLimit, [](const CheckResult&) {});
}

Names identifiers(const Judged& results, Verdict verdict) {
    Names names;
    for (const CheckResult& result : results) {
        if (result.verdict == verdict) {
            names.insert(result.id);
        }
    }
    return names;
}

Names aspectsNotPassed(const Judged& results, const std::string& function) {
    Names aspects;
    for (const CheckResult& result : results) {
        const bool isMeant = function.empty() || result.id.find('.' + function + '.') != std::string::npos;
        if (isMeant && result.verdict != Verdict::passed && result.verdict != Verdict::leftOut) {
            aspects.insert(aspectOf(result) + ' ' + tool::compliance::nameOf(result.verdict));
        }
    }
    return aspects;
}

std::map<std::string, int> failuresByAspect(const Judged& results) {
    std::map<std::string, int> failures;
    for (const CheckResult& result : results) {
        if (result.verdict == Verdict::failed) {
            ++failures[aspectOf(result)];
        }
    }
    return failures;
}

} // namespace kelutv::test
