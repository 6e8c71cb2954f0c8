#include "tools/kelutv/snapshot/Choice.h"

#include "wire/text/Letters.h"
#include "wire/text/Pattern.h"

#include <algorithm>

namespace kelutv::tool {

bool isMeant(const std::string& state, const std::vector<std::string>& patterns) {
    return std::any_of(patterns.begin(), patterns.end(), [&state](const std::string& pattern) {
        // The brackets around keys are not those of a pattern when the whole name is given.
        return wire::lowered(pattern) == wire::lowered(state) || wire::Pattern(pattern).matches(state);
    });
}

} // namespace kelutv::tool
