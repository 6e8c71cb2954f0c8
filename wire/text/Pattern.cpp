#include "wire/text/Pattern.h"

#include "wire/text/Letters.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

namespace kelutv::wire {

namespace {

/** What stands for one character: where it ends in the pattern, and whether the character is one of those. */
struct Step {
    std::size_t end;
    bool fits;
};

/** A set in brackets; nothing when the bracket is never closed and so stands for itself. */
std::optional<Step> stepOfSet(std::string_view pattern, std::size_t at, char character) {
    std::size_t next = at + 1;
    const bool isNegated = next < pattern.size() && (pattern[next] == '!' || pattern[next] == '^');
    next += isNegated ? 1 : 0;
    bool isIn = false;
    for (const std::size_t first = next; next < pattern.size(); ++next) {
        if (pattern[next] == ']' && next != first) {
            return Step{next + 1, isIn != isNegated};
        }
        const bool isRange = next + 2 < pattern.size() && pattern[next + 1] == '-' && pattern[next + 2] != ']';
        const char last = pattern[isRange ? next + 2 : next];
        isIn = isIn || (pattern[next] <= character && character <= last);
        next += isRange ? 2 : 0;
    }
    return std::nullopt;
}

Step stepAt(std::string_view pattern, std::size_t at, char character) {
    if (pattern[at] == '[') {
        if (const auto step = stepOfSet(pattern, at, character)) {
            return *step;
        }
    }
    return {at + 1, pattern[at] == '?' || pattern[at] == character};
}

/** Goes back to the last `*` only, so that no pattern takes long. */
bool fits(std::string_view pattern, std::string_view name) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = std::string_view::npos;
    std::size_t taken = 0;
    while (in < name.size()) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            taken = in;
            continue;
        }
        const Step step = at < pattern.size() ? stepAt(pattern, at, name[in]) : Step{at, false};
        if (step.fits) {
            at = step.end;
            ++in;
        } else if (star != std::string_view::npos) {
            at = star + 1;
            in = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == std::string_view::npos;
}

bool hasWildcards(const std::string& text) { return text.find_first_of("*?[") != std::string::npos; }

bool isOneOf(const std::string& text, const std::vector<std::string>& names) {
    const std::string wanted = lowered(text);
    return std::any_of(names.begin(), names.end(), [&wanted](const std::string& name) {
        return name.size() == wanted.size() && lowered(name) == wanted;
    });
}

} // namespace

Pattern::Pattern(const std::string& text) : Pattern(text, {}) {}

Pattern::Pattern(const std::string& text, const std::vector<std::string>& names)
    : mText(text.size() > kLongest                       ? ""
            : hasWildcards(text) || isOneOf(text, names) ? lowered(text)
                                                         : '*' + lowered(text) + '*') {}

bool Pattern::matches(const std::string& name) const { return fits(mText, lowered(name)); }

bool Pattern::matchesAny(const std::vector<std::string>& names) const {
    return std::any_of(names.begin(), names.end(), [this](const std::string& name) { return matches(name); });
}

} // namespace kelutv::wire
