#include "tools/kelutv/compliance/Families.h"

#include "tools/kelutv/compliance/events/EventChecks.h"
#include "tools/kelutv/compliance/form/FormChecks.h"
#include "tools/kelutv/compliance/life/LifeChecks.h"
#include "tools/kelutv/compliance/life/SeveralListeners.h"
#include "tools/kelutv/compliance/load/LoadChecks.h"
#include "tools/kelutv/compliance/person/PersonChecks.h"
#include "tools/kelutv/compliance/refusal/RefusalChecks.h"
#include "tools/kelutv/compliance/state/StateChecks.h"
#include "tools/kelutv/output/Errors.h"
#include "wire/text/Letters.h"
#include "wire/text/Pattern.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <functional>

namespace kelutv::tool::compliance {

namespace {

using AddChecks = void (*)(Checks& checks, const Terms& terms);

/** In the order in which they are made. */
constexpr AddChecks kFamilies[] = {addFormChecks,  addStateChecks,           addRefusalChecks,
                                   addEventChecks, addSeveralListenersCheck, addLoadChecks,
                                   addLifeChecks,  addPersonChecks};

using Meaning = std::function<bool(const Subject& subject)>;

/** Of a module's or a family's name: what belongs to it, whatever else has such a piece in its identifier. */
Meaning belongsTo(const std::string& name) {
    return [name](const Subject& subject) { return name == subject.module || name == subject.family; };
}

Meaning meaningOf(const Checks& checks, const std::string& word) {
    const Meaning belongs = belongsTo(wire::lowered(word));
    if (std::any_of(checks.begin(), checks.end(), [&](const auto& check) { return belongs(check->subject()); })) {
        return belongs;
    }
    return [word, pattern = wire::Pattern(word)](const Subject& subject) {
        // The brackets around keys are not those of a pattern when the whole identifier is given.
        return word == subject.function || word == subject.id || pattern.matches(subject.id);
    };
}

/** Whether its checks are left out unless it is named. */
bool needsLeave(const wire::Function* function) {
    return function->effect.isDangerous || (function->requests.size() > 0 && function->effect.back == nullptr &&
                                            function->effect.kind != wire::EffectKind::Read);
}

void requireLeaveNeeded(const Terms& terms) {
    for (const std::string& name : terms.allowed) {
        const auto functions = wire::functionsNamed(name);
        if (functions.empty()) {
            throw UsageError("--allow: there is no function '" + wire::shown(name) + '\'');
        }
        if (std::none_of(functions.begin(), functions.end(), needsLeave)) {
            throw UsageError("--allow: '" + wire::shown(name) +
                             "' needs no leave: it is not dangerous, and changes nothing that is not put back");
        }
    }
}

} // namespace

Checks chosenChecks(const std::vector<std::string>& words, const Terms& terms) {
    requireLeaveNeeded(terms);
    Checks all;
    for (const AddChecks add : kFamilies) {
        add(all, terms);
    }
    if (words.empty()) {
        return all;
    }
    std::vector<bool> isChosen(all.size());
    for (const std::string& word : words) {
        const Meaning means = meaningOf(all, word);
        bool isUsed = false;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (means(all[i]->subject())) {
                isChosen[i] = true;
                isUsed = true;
            }
        }
        if (!isUsed) {
            throw UsageError("no check is meant by '" + wire::shown(word) +
                             "'; a module, a family, a function or a pattern of identifiers is; see --dry-run");
        }
    }
    Checks chosen;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (isChosen[i]) {
            chosen.push_back(std::move(all[i]));
        }
    }
    return chosen;
}

} // namespace kelutv::tool::compliance
