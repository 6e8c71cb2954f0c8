#include "tools/kelutv/compliance/refusal/RefusalChecks.h"

#include "tools/kelutv/checks/Reads.h"
#include "tools/kelutv/compliance/framework/Answer.h"
#include "tools/kelutv/compliance/framework/Identifiers.h"
#include "tools/kelutv/compliance/framework/Samples.h"
#include "tools/kelutv/compliance/framework/Setting.h"
#include "tools/kelutv/compliance/refusal/Malformed.h"
#include "tools/kelutv/compliance/refusal/ServiceChecks.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/StateRules.h"

#include <algorithm>
#include <functional>

namespace kelutv::tool::compliance {

namespace {

using Make = std::function<MalformedRequests(const Bytes& request)>;

/** One way to send what no client sends. */
struct Way {
    std::string name;
    std::string sentence;
    /** What a service that answers all the same is judged as. */
    Verdict whenTaken;
    Make make;
};

/** Whether it sets something that is read back and can be put back. */
bool isPutBack(const wire::Function& function) {
    return function.effect.kind == wire::EffectKind::Set && function.effect.back != nullptr;
}

class RefusalCheck : public Check {
public:
    RefusalCheck(const wire::Function& function, Way way)
        : Check(subjectOf(kRefusalFamily, function, way.name, way.sentence)), mFunction(function),
          mWay(std::move(way)) {}

    bool changesState() const override { return mFunction.effect.kind != wire::EffectKind::Read; }

    Outcome run(Television& television) const override {
        try {
            return isPutBack(mFunction) ? judgeSet(television) : judgeOther(television);
        } catch (const Ended& ended) {
            return ended.outcome;
        }
    }

private:
    Outcome judgeOther(Television& television) const {
        const std::vector<Bytes> requests = requestsFor(sampleOf(mFunction));
        return requests.empty() ? Outcome{Verdict::inconclusive, "a plain call of it sends nothing", std::nullopt}
                                : judge(television, requests.front());
    }

    /** What is refused would have given the state another value. */
    Outcome judgeSet(Television& television) const {
        Setting setting(television, mFunction, sampleOf(*wire::functionsNamed(mFunction.effect.back).front()));
        Outcome outcome = judge(television, setting.requestForOther());
        if (outcome.verdict == Verdict::passed) {
            setting.requireUnchanged();
        }
        return outcome;
    }

    Outcome judge(Television& television, const Bytes& request) const {
        for (const Malformed& malformed : mWay.make(request)) {
            const Exchange exchange = television.ask(malformed.request);
            Outcome outcome = exchange.status != 0 && !television.isAlive()
                                  ? Outcome{Verdict::failed, "ends the service", std::nullopt}
                                  : outcomeOf(exchange, mFunction.statusIsValue, mWay.whenTaken);
            if (outcome.verdict != Verdict::passed) {
                outcome.reason = "a request that " + malformed.what + ' ' + outcome.reason;
                outcome.exchange = exchange;
                return outcome;
            }
        }
        return {};
    }

    const wire::Function& mFunction;
    Way mWay;
};

const std::vector<Way>& commonWays() {
    static const std::vector<Way> ways{
        {"token", "A request with the token of another interface, or without one, is refused: it is meant for another.",
         Verdict::failed, withWrongTokens},
        {"truncated",
         "A request that is cut off at any byte behind its token is refused: what is missing must be neither guessed "
         "nor read beyond the end.",
         Verdict::failed, truncated},
        {"trailing",
         "A request with more behind it than it has is refused, since it was meant to be another one; a service that "
         "does not look there leaves the check open.",
         Verdict::inconclusive, withMore},
        {"huge",
         "A request of 1 MiB is refused by the service or on its way, and the service goes on; one that does not look "
         "behind what it needs leaves the check open.",
         Verdict::inconclusive, madeHuge},
    };
    return ways;
}

/**
 * What lies outside a range of numbers that is set must be refused. Of an enumeration, and of what only picks what is
 * read, a television may know more than the catalogue.
 */
Way outsideOf(const wire::Parameter& parameter, const wire::Function& function) {
    const bool isKnown = parameter.values.names == nullptr && function.effect.kind == wire::EffectKind::Set;
    return {std::string("range.") + parameter.name,
            isKnown ? "A number outside its range is refused: it would be kept as what it cannot be."
                    : "A value that the catalogue does not know is refused; a service that takes it may know it, and "
                      "leaves the check open.",
            isKnown ? Verdict::failed : Verdict::inconclusive,
            [&parameter](const Bytes& request) { return outOfRange(parameter, request); }};
}

/** Whether it picks what a set changes: what is kept under a key that does not exist could not be put back. */
bool isKeyOfSet(const wire::Parameter& parameter, const wire::Function& function) {
    if (!isPutBack(function)) {
        return false;
    }
    const auto& keys = wire::functionsNamed(function.effect.back).front()->parameters;
    return std::any_of(keys.begin(), keys.end(),
                       [&parameter](const wire::Parameter& key) { return std::string(key.name) == parameter.name; });
}

bool hasKnownValues(const wire::Parameter& parameter) {
    const wire::ValueType& type = parameter.values;
    return type.kind == wire::ValueKind::Single &&
           (type.names != nullptr || (type.range != nullptr && type.range->isBounded()));
}

/** The ways that need a parameter of a kind. */
std::vector<Way> waysFor(const wire::Function& function) {
    std::vector<Way> ways = commonWays();
    bool hasText = false;
    for (const wire::Parameter& parameter : function.parameters) {
        const bool isGiven = parameter.direction != wire::Direction::Out;
        hasText = hasText || (isGiven && parameter.values.kind == wire::ValueKind::Text);
        if (isGiven && hasKnownValues(parameter) && !isKeyOfSet(parameter, function)) {
            ways.push_back(outsideOf(parameter, function));
        }
    }
    if (hasText) {
        ways.push_back({"nullText", "A request without its text, which is what a null one leaves, is refused.",
                        Verdict::failed, withoutTexts});
    }
    return ways;
}

void add(Checks& checks, const wire::Function& function) {
    for (Way& way : waysFor(function)) {
        checks.push_back(std::make_unique<RefusalCheck>(function, std::move(way)));
    }
}

Way unknownItems() {
    return {"unknownItem", "An item that the module does not have is refused: there is nothing to answer.",
            Verdict::failed, withUnknownItems};
}

/** Why the function gets no requests that might do what they must not; empty when it does. */
std::string whyLeftOut(const wire::Function& function, const Terms& terms) {
    if (function.effect.kind == wire::EffectKind::Read) {
        return "";
    }
    if (!isPutBack(function) && !isNamed(function, terms)) {
        return "nothing puts back what it would do if it were not refused; --allow " + tool::nameOf(function) +
               " makes it";
    }
    if (function.requests.size() > 1) {
        return "makes several requests, of which each is that of another function, too";
    }
    return mayCall(function, terms) ? "" : whyNotCalled(function);
}

} // namespace

void addRefusalChecks(Checks& checks, const Terms& terms) {
    addServiceChecks(checks);
    for (const wire::Function& function : wire::allFunctions()) {
        if (function.requests.size() == 0) {
            continue;
        }
        const std::string reason = whyLeftOut(function, terms);
        if (!reason.empty()) {
            const Way& way = commonWays().front();
            checks.push_back(
                std::make_unique<LeftOutCheck>(subjectOf(kRefusalFamily, function, way.name, way.sentence), reason));
        } else if (takesAnyItem(function)) {
            checks.push_back(std::make_unique<RefusalCheck>(function, unknownItems()));
        } else {
            add(checks, function);
        }
    }
}

} // namespace kelutv::tool::compliance
