#include "tools/kelutv/compliance/results/Verdict.h"

#include <algorithm>
#include <cstddef>

namespace kelutv::tool::compliance {

namespace {

/** In the order of the verdicts. */
const std::vector<std::string>& verdictNames() {
    static const std::vector<std::string> names{"passed",           "failed",   "refused",
                                                "expected-failure", "left-out", "inconclusive"};
    return names;
}

} // namespace

const std::vector<Verdict>& allVerdicts() {
    static const std::vector<Verdict> verdicts{Verdict::passed,          Verdict::failed,  Verdict::refused,
                                               Verdict::expectedFailure, Verdict::leftOut, Verdict::inconclusive};
    return verdicts;
}

const std::string& nameOf(Verdict verdict) { return verdictNames()[static_cast<std::size_t>(verdict)]; }

std::optional<Verdict> verdictNamed(const std::string& name) {
    const auto found = std::find(verdictNames().begin(), verdictNames().end(), name);
    if (found == verdictNames().end()) {
        return std::nullopt;
    }
    return static_cast<Verdict>(found - verdictNames().begin());
}

std::string wordsOf(Verdict verdict) {
    std::string words = nameOf(verdict);
    std::replace(words.begin(), words.end(), '-', ' ');
    return words;
}

} // namespace kelutv::tool::compliance
