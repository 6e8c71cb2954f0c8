#include "tools/kelutv/text/Patterns.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>

namespace kelutv::tool {

std::vector<wire::RequestPattern> patternsOf(const std::string& option, const std::vector<std::string>& words) {
    std::vector<wire::RequestPattern> patterns;
    for (const std::string& word : words) {
        try {
            patterns.emplace_back(word);
        } catch (const wire::UnknownName&) {
            throw UsageError(option + ": no command or item is called " + wire::shown(word) +
                             wire::nearestHint(word, wire::RequestPattern::names()));
        }
    }
    return patterns;
}

bool matchesAny(const std::vector<wire::RequestPattern>& patterns, const wire::Request& request) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [&request](const wire::RequestPattern& pattern) { return pattern.matches(request); });
}

} // namespace kelutv::tool
