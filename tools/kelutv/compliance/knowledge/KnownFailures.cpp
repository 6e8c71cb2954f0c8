#include "tools/kelutv/compliance/knowledge/KnownFailures.h"

#include "tools/kelutv/output/JsonMembers.h"
#include "tools/kelutv/text/InputFile.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <utility>

namespace kelutv::tool::compliance {

namespace {

constexpr char kKnownFormat[] = "kelutv known failures 1";

/** The brackets around keys stand for themselves, as identifiers have them. */
wire::Pattern patternOf(std::string check) {
    std::replace(check.begin(), check.end(), '[', '?');
    return wire::Pattern(check, {check});
}

KnownFailure knownFailureOf(const Json& entry, const std::string& place) {
    const JsonMembers members(entry, place);
    KnownFailure known{members.text("check"), members.text("reason")};
    members.require(!known.check.empty(), "'check' is empty; it is an identifier or a pattern of identifiers");
    members.require(!known.reason.empty(), "'reason' is empty; say why the check fails");
    return known;
}

} // namespace

KnownFailures::KnownFailures(std::vector<KnownFailure> known) : mKnown(std::move(known)) {
    for (const KnownFailure& each : mKnown) {
        mPatterns.push_back(patternOf(each.check));
    }
}

CheckResult KnownFailures::judged(CheckResult result) {
    if (result.id == kPutBackCheck) {
        return result;
    }
    for (std::size_t i = 0; i < mKnown.size(); ++i) {
        if (!mPatterns[i].matches(result.id)) {
            continue;
        }
        mUsed.insert(i);
        if (result.verdict == Verdict::failed) {
            result.verdict = Verdict::expectedFailure;
            result.reason += "; known: " + mKnown[i].reason;
        } else if (result.verdict == Verdict::passed && result.reason.empty()) {
            result.reason = "passed although it is known to fail: " + mKnown[i].reason;
        }
    }
    return result;
}

std::vector<std::string> KnownFailures::unused() const {
    std::vector<std::string> checks;
    for (std::size_t i = 0; i < mKnown.size(); ++i) {
        if (mUsed.count(i) == 0) {
            checks.push_back(mKnown[i].check);
        }
    }
    return checks;
}

std::vector<KnownFailure> knownFailuresOf(const std::string& text, const std::string& file) {
    const Json document = jsonOfFile(text, file);
    const JsonMembers members(document, file);
    const std::string& format = members.text("format");
    members.require(format == kKnownFormat, "the format is '" + wire::shown(format) + "', not '" + kKnownFormat + "'");
    std::vector<KnownFailure> known;
    for (const Json& entry : members.list("failures").entries()) {
        known.push_back(knownFailureOf(entry, file + ": failures[" + std::to_string(known.size()) + ']'));
    }
    return known;
}

std::vector<KnownFailure> knownFailuresIn(const std::string& path) {
    if (path.empty()) {
        return {};
    }
    const Bytes bytes = bytesOfInput(path);
    return knownFailuresOf({bytes.begin(), bytes.end()},
                           path == "-" ? "standard input" : wire::shown(path, wire::kMostOfPath));
}

} // namespace kelutv::tool::compliance
