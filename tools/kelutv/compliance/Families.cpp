#include "tools/kelutv/compliance/Families.h"

#include "tools/kelutv/compliance/events/EventChecks.h"
#include "tools/kelutv/compliance/form/FormChecks.h"
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
constexpr AddChecks kFamilies[] = {addFormChecks, addStateChecks, addRefusalChecks, addEventChecks};

bool isMeant(const Subject& subject, const std::string& word) {
    const std::string lowered = wire::lowered(word);
    return lowered == subject.module || lowered == subject.family || lowered == wire::lowered(subject.function) ||
           lowered == wire::lowered(subject.id) || wire::Pattern(word).matches(subject.id);
}

/** A word that is a module's or a family's name means that, and no piece of an identifier. */
bool isName(const Checks& checks, const std::string& word) {
    const std::string lowered = wire::lowered(word);
    return std::any_of(checks.begin(), checks.end(), [&lowered](const auto& check) {
        return lowered == check->subject().module || lowered == check->subject().family;
    });
}

std::function<bool(const Subject&)> meaningOf(const Checks& checks, const std::string& word) {
    if (!isName(checks, word)) {
        return [word](const Subject& subject) { return isMeant(subject, word); };
    }
    return [lowered = wire::lowered(word)](const Subject& subject) {
        return lowered == subject.module || lowered == subject.family;
    };
}

void requireDangerous(const Terms& terms) {
    for (const std::string& name : terms.allowed) {
        const auto functions = wire::functionsNamed(name);
        if (functions.empty()) {
            throw UsageError("--allow: there is no function '" + wire::shown(name) + '\'');
        }
        if (std::none_of(functions.begin(), functions.end(),
                         [](const wire::Function* function) { return function->effect.isDangerous; })) {
            throw UsageError("--allow: '" + wire::shown(name) + "' is not dangerous and needs no leave");
        }
    }
}

} // namespace

Checks chosenChecks(const std::vector<std::string>& words, const Terms& terms) {
    requireDangerous(terms);
    Checks all;
    for (const AddChecks add : kFamilies) {
        add(all, terms);
    }
    if (words.empty()) {
        return all;
    }
    std::vector<bool> isChosen(all.size());
    for (const std::string& word : words) {
        const auto means = meaningOf(all, word);
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
