#pragma once

#include "tools/kelutv/compliance/results/CheckResult.h"
#include "wire/text/Pattern.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** Checks that are known to fail. */
struct KnownFailure {
    /** An identifier, or a pattern of identifiers: `*` stands for any characters, `?` for one. */
    std::string check;
    std::string reason;
};

/** Turns failures that are known into expected ones. */
class KnownFailures {
public:
    explicit KnownFailures(std::vector<KnownFailure> known);

    /**
     * The result as it is with what is known: what failed is expected with the reason, what passed says that it was not
     * expected to.
     */
    CheckResult judged(CheckResult result);

    /** The identifiers and patterns by which none of the results was known. */
    std::vector<std::string> unused() const;

private:
    std::vector<KnownFailure> mKnown;
    /** Of each of them. */
    std::vector<wire::Pattern> mPatterns;
    std::set<std::size_t> mUsed;
};

/**
 * Reads a file of known failures.
 *
 * @param file what messages call it
 * @throws UsageError what is wrong, where, and what is allowed
 */
std::vector<KnownFailure> knownFailuresOf(const std::string& text, const std::string& file);

/** Those of a file, `-` for standard input; none for an empty path. @throws UsageError */
std::vector<KnownFailure> knownFailuresIn(const std::string& path);

} // namespace kelutv::tool::compliance
