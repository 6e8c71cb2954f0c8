#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** What a check came to. */
enum class Verdict {
    passed,
    failed,
    /** The service says no, as it may. */
    refused,
    /** Failed as it is known to. */
    expectedFailure,
    /** Not made; the reason says why. */
    leftOut,
    /** Made, and neither passed nor failed. */
    inconclusive,
};

/** All of them, in the order in which they are counted. */
const std::vector<Verdict>& allVerdicts();

/** As it stands in reports: `expected-failure`. */
const std::string& nameOf(Verdict verdict);

/** The verdict of this name; nothing for another text. */
std::optional<Verdict> verdictNamed(const std::string& name);

/** For a person: `expected failure`. */
std::string wordsOf(Verdict verdict);

} // namespace kelutv::tool::compliance
