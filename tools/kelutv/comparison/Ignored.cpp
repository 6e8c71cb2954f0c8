#include "tools/kelutv/comparison/Ignored.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/recordings/DecodedForm.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

std::optional<wire::RequestPattern> requestsMeantBy(const std::string& word) {
    try {
        return wire::RequestPattern(word);
    } catch (const wire::UnknownName&) {
        return std::nullopt;
    }
}

std::optional<wire::Pattern> eventsMeantBy(const std::string& word) {
    const std::vector<std::string> names = recordedEvents().names();
    const wire::Pattern pattern(word, names);
    return !word.empty() && pattern.matchesAny(names) ? std::optional(pattern) : std::nullopt;
}

std::optional<std::uint32_t> eventNumberedBy(const std::string& word) {
    const std::optional<std::int32_t> number = wire::int32Of(word);
    return number ? std::optional(static_cast<std::uint32_t>(*number)) : std::nullopt;
}

std::string nearestHintFor(const std::string& word) {
    std::vector<std::string> names = wire::RequestPattern::names();
    const std::vector<std::string> events = recordedEvents().names();
    names.insert(names.end(), events.begin(), events.end());
    return wire::nearestHint(word, names);
}

} // namespace

Ignored::Rule Ignored::ruleOf(const std::string& option, const std::string& word) {
    const std::size_t colon = word.rfind(':');
    const std::string name = word.substr(0, colon);
    Rule rule{requestsMeantBy(name), eventsMeantBy(name), eventNumberedBy(name), std::nullopt};
    if (!rule.requests && !rule.events && !rule.event) {
        throw UsageError(option + ": no command, item or event is called " + wire::shown(name) + nearestHintFor(name));
    }
    if (colon != std::string::npos) {
        if (colon + 1 == word.size()) {
            throw UsageError(option + ": the name of a value stands behind the colon, as in CMD_AUDIO_SETVOLUME:vol");
        }
        rule.value = wire::Pattern(word.substr(colon + 1));
    }
    return rule;
}

Ignored::Ignored(const std::string& option, const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        mRules.push_back(ruleOf(option, word));
    }
}

bool Ignored::Rule::means(const Happening& happening) const {
    if (happening.kind == Happening::Kind::Call) {
        return requests && requests->matches(requestOf(happening).request);
    }
    if (happening.kind != Happening::Kind::Event) {
        return false;
    }
    const wire::Event* const known = recordedEvents().find(identifierOf(happening));
    return event == identifierOf(happening) || (events && known != nullptr && events->matches(known->name));
}

bool Ignored::has(const Happening& happening) const {
    return std::any_of(mRules.begin(), mRules.end(),
                       [&happening](const Rule& rule) { return !rule.value && rule.means(happening); });
}

std::vector<wire::Pattern> Ignored::valuesOf(const Happening& happening) const {
    std::vector<wire::Pattern> values;
    for (const Rule& rule : mRules) {
        if (rule.value && rule.means(happening)) {
            values.push_back(*rule.value);
        }
    }
    return values;
}

void Ignored::takeFrom(std::vector<ValueDifference>& differences, const Happening& happening) const {
    for (const wire::Pattern& value : valuesOf(happening)) {
        differences.erase(std::remove_if(differences.begin(), differences.end(),
                                         [&value](const ValueDifference& each) { return value.matches(each.name); }),
                          differences.end());
    }
}

} // namespace kelutv::tool
