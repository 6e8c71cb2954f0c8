#include "tools/kelutv/compliance/framework/Terms.h"

#include "tools/kelutv/snapshot/StateRules.h"

#include <algorithm>

namespace kelutv::tool::compliance {

bool isNamed(const wire::Function& function, const Terms& terms) {
    return std::any_of(terms.allowed.begin(), terms.allowed.end(), [&function](const std::string& name) {
        return name == function.name || name == function.shortName;
    });
}

bool mayCall(const wire::Function& function, const Terms& terms) {
    return !function.effect.isDangerous || isNamed(function, terms);
}

std::string whyNotCalled(const wire::Function& function) {
    return "dangerous; --allow " + tool::nameOf(function) + " makes it";
}

} // namespace kelutv::tool::compliance
