#include "tools/kelutv/compliance/knowledge/Capabilities.h"

#include "tools/kelutv/snapshot/StateRules.h"
#include "wire/Function.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace kelutv::tool::compliance {

namespace {

using Names = Capabilities::Names;

bool lacks(const Names& names, const std::string& name) {
    const auto found = names.find(name);
    return found != names.end() && !found->second;
}

/** The function of this full name; null for an empty one. */
const wire::Function* functionOf(const char* name) {
    const auto found = wire::functionsNamed(name != nullptr ? name : "");
    return found.size() == 1 ? found.front() : nullptr;
}

/** Of the commands that the function sends, and of the items that they carry. */
std::vector<std::string> commandNamesOf(const wire::Function& function) {
    std::vector<std::string> names;
    for (const wire::SentRequest& request : function.requests) {
        names.emplace_back(request.item != nullptr ? request.item : request.command);
    }
    return names;
}

/** `[channel=headphone]` of an identifier; empty without keys. */
std::string keysIn(const std::string& id) {
    const std::size_t begin = id.find('[');
    const std::size_t end = id.rfind(']');
    return begin == std::string::npos || end == std::string::npos ? "" : id.substr(begin, end + 1 - begin);
}

/** The check's function, and the one that reads what it sets. */
std::vector<const wire::Function*> functionsOf(const Check& check) {
    std::vector<const wire::Function*> functions;
    if (const wire::Function* const function = functionOf(check.subject().function.c_str())) {
        functions.push_back(function);
        if (const wire::Function* const back = functionOf(function->effect.back)) {
            functions.push_back(back);
        }
    }
    return functions;
}

std::string whyLackingFunction(const Capabilities& capabilities, const wire::Function& function,
                               const std::string& keys) {
    for (const std::string& name : commandNamesOf(function)) {
        if (lacks(capabilities.commands, name)) {
            return "the television has no " + name;
        }
    }
    const std::string key = tool::nameOf(function) + keys;
    return lacks(capabilities.keys, key) ? "the television has no " + key : "";
}

/** Has it as soon as one of the checks found it. */
void note(Names& names, const std::string& name, bool isThere) {
    bool& noted = names.emplace(name, isThere).first->second;
    noted = noted || isThere;
}

/** What the checks of one function found under its keys. */
struct FoundKeys {
    const wire::Function* function = nullptr;
    Names keys;

    bool isThere() const {
        return std::any_of(keys.begin(), keys.end(), [](const auto& key) { return key.second; });
    }
    bool isWhole() const {
        return std::all_of(keys.begin(), keys.end(), [](const auto& key) { return key.second; });
    }
};

/** By the names of the functions. */
using FoundReadings = std::map<std::string, FoundKeys>;

/** One aspect that is refused is enough: all of them are of the same answer. */
void note(FoundReadings& readings, const Check& check, Verdict verdict) {
    const wire::Function* const function = functionOf(check.subject().function.c_str());
    if (function != nullptr) {
        const std::string name = tool::nameOf(*function);
        readings[name].function = function;
        bool& isThere = readings[name].keys.emplace(name + keysIn(check.subject().id), true).first->second;
        isThere = isThere && verdict != Verdict::refused;
    }
}

/** An event that failed its check otherwise may be there, and is to be checked again. */
void noteEvent(Names& events, const std::string& event, const CheckResult& result) {
    const bool isMissed = result.reason.find(missedText(event)) != std::string::npos;
    if (isMissed || result.verdict == Verdict::passed) {
        note(events, event, !isMissed);
    }
}

bool isJudged(Verdict verdict) { return verdict != Verdict::leftOut && verdict != Verdict::inconclusive; }

/** Keys are named where a function has some of them only. */
void note(Capabilities& capabilities, const FoundKeys& found) {
    note(capabilities.modules, found.function->module, found.isThere());
    for (const std::string& name : commandNamesOf(*found.function)) {
        note(capabilities.commands, name, found.isThere());
    }
    if (found.isThere() && !found.isWhole()) {
        capabilities.keys.insert(found.keys.begin(), found.keys.end());
    }
}

} // namespace

std::string whyLacking(const Capabilities& capabilities, const Check& check) {
    const Subject& subject = check.subject();
    if (lacks(capabilities.modules, subject.module)) {
        return "the television has no module " + subject.module;
    }
    if (lacks(capabilities.events, check.event())) {
        return "the television has no event " + check.event();
    }
    for (const wire::Function* const function : functionsOf(check)) {
        if (const std::string reason = whyLackingFunction(capabilities, *function, keysIn(subject.id));
            !reason.empty()) {
            return reason;
        }
    }
    return "";
}

Checks withoutLacking(const Capabilities& capabilities, Checks checks) {
    for (auto& check : checks) {
        if (const std::string reason = whyLacking(capabilities, *check); !reason.empty()) {
            check = std::make_unique<LeftOutCheck>(check->subject(), reason);
        }
    }
    return checks;
}

Capabilities capabilitiesFrom(const Checks& checks, const std::vector<CheckResult>& results) {
    std::map<std::string, const CheckResult*> byId;
    for (const CheckResult& result : results) {
        byId.emplace(result.id, &result);
    }
    Capabilities capabilities;
    FoundReadings readings;
    for (const auto& check : checks) {
        const auto found = byId.find(check->subject().id);
        if (found == byId.end()) {
            continue;
        }
        const CheckResult& result = *found->second;
        if (!check->event().empty()) {
            noteEvent(capabilities.events, check->event(), result);
        } else if (isJudged(result.verdict)) {
            note(readings, *check, result.verdict);
        }
    }
    for (const auto& [name, keys] : readings) {
        note(capabilities, keys);
    }
    return capabilities;
}

} // namespace kelutv::tool::compliance
