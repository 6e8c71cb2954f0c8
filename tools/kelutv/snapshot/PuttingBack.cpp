#include "tools/kelutv/snapshot/PuttingBack.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/SetArguments.h"
#include "tools/kelutv/snapshot/Setters.h"
#include "tools/kelutv/snapshot/StateRules.h"
#include "tools/kelutv/snapshot/StateText.h"
#include "tools/kelutv/text/ShellWord.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

bool isZero(const Json& value) {
    return (value.isNumber() && value.asReal() == 0) || (value.isText() && value.asText().empty());
}

/** What is wrong with a call that is to put the state back; empty when it does exactly that. */
std::string complaintAbout(const SetCall& call, const HeldState& held) {
    const auto requests = requestsOf(*call.function, call.arguments);
    if (stateNamedIn(held.state) == nullptr) {
        return requests.empty() ? nameOf(*call.function) + " sends no request for this value" : "";
    }
    if (requests.size() != 1) {
        return nameOf(*call.function) + " sends " + std::to_string(requests.size()) + " requests for this value";
    }
    const wire::Request request = decodeRequest(requests.front()).request;
    const wire::StateRule& rule = operationFor(request).rule;
    if (request.refusal || rule.access != wire::StateRule::Access::Set) {
        return nameOf(*call.function) + " stores nothing for this value";
    }
    if (stateText(*rule.key, wire::valuesOf(rule.indexes, request.arguments)) != held.state) {
        return nameOf(*call.function) + " stores it under another key";
    }
    const Json stored = documentOf(wire::valuesOf(rule.values, request.arguments));
    return readsAs(stored, held.values) ? "" : nameOf(*call.function) + " would store " + stored.dump();
}

} // namespace

FoundCall callPuttingBack(const HeldState& held) {
    const bool mayBeDangerous = isDangerous(held);
    FoundCall found{{nullptr, {}}, "nothing sets it"};
    for (const wire::Function* const setter : settersOf(held)) {
        if (setter->effect.isDangerous && !mayBeDangerous) {
            continue;
        }
        found = callOf(*setter, held);
        if (found.complaint.empty()) {
            break;
        }
    }
    return found;
}

FoundCall callOf(const wire::Function& setter, const HeldState& held) {
    const SetCall call{&setter, argumentsFor(setter, held)};
    try {
        const std::string complaint = complaintAbout(call, held);
        return complaint.empty() ? FoundCall{call, ""} : FoundCall{{nullptr, {}}, complaint};
    } catch (const UsageError& error) {
        return {{nullptr, {}}, error.what()};
    }
}

bool readsAs(const Json& stored, const Json& read) {
    const Json::Entries& left = stored.entries();
    const Json::Entries& right = read.entries();
    const std::size_t common = std::min(left.size(), right.size());
    const auto begin = static_cast<Json::Entries::difference_type>(common);
    return std::equal(left.begin(), left.begin() + begin, right.begin()) &&
           std::all_of(left.begin() + begin, left.end(), isZero) &&
           std::all_of(right.begin() + begin, right.end(), isZero);
}

std::string commandLineOf(const SetCall& call) {
    std::string line = "kelutv call " + nameOf(*call.function);
    for (const std::string& argument : call.arguments) {
        line += ' ' + shellWord(argument);
    }
    return line;
}

} // namespace kelutv::tool
