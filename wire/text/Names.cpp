#include "wire/text/Names.h"

#include "wire/text/Join.h"
#include "wire/text/Letters.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <mutex>
#include <utility>

namespace kelutv::wire {

namespace {

/** Where more names than this are allowed only some are listed. */
constexpr std::size_t kManyNames = 24;

/** Longer than every name; a longer word is not compared with them. */
constexpr std::size_t kLongestWord = 256;

bool isSame(const std::string& name, const std::string& wanted) { return name == wanted; }

std::string withoutUnderscores(std::string name) {
    name.erase(std::remove(name.begin(), name.end(), '_'), name.end());
    return name;
}

bool isSameButForUnderscores(const std::string& name, const std::string& wanted) {
    return withoutUnderscores(name) == withoutUnderscores(wanted);
}

bool endsWithWord(const std::string& name, const std::string& wanted) {
    const std::size_t start = name.size() - wanted.size();
    return name.size() > wanted.size() && name.compare(start, wanted.size(), wanted) == 0 && name[start - 1] == '_';
}

bool begins(const std::string& name, const std::string& wanted) { return name.compare(0, wanted.size(), wanted) == 0; }

bool holds(const std::string& name, const std::string& wanted) { return name.find(wanted) != std::string::npos; }

/** The longest piece up to and with an underscore that at least `share` of the names, above 0.5, begin with. */
std::string prefixOf(const std::vector<Enumerator>& enumerators, double share) {
    const auto wanted = share * static_cast<double>(enumerators.size());
    std::map<std::string, std::size_t> counts;
    for (const Enumerator& each : enumerators) {
        const std::string name = each.name;
        for (std::size_t at = name.find('_'); at != std::string::npos; at = name.find('_', at + 1)) {
            ++counts[name.substr(0, at + 1)];
        }
    }
    std::string longest;
    for (const auto& [prefix, count] : counts) {
        if (prefix.size() > longest.size() && static_cast<double>(count) >= wanted) {
            longest = prefix;
        }
    }
    return longest;
}

/** What nearly all names begin with does not tell them apart; of two names it may. */
std::string usualPrefixOf(const std::vector<Enumerator>& enumerators) {
    constexpr double kNearlyAll = 0.75;
    return prefixOf(enumerators, enumerators.size() > 2 ? kNearlyAll : 1);
}

} // namespace

Names::Names(std::string of, const std::vector<Enumerator>& enumerators) : mOf(std::move(of)) {
    const std::string usual = usualPrefixOf(enumerators);
    const std::string common = prefixOf(enumerators, 1);
    for (const Enumerator& each : enumerators) {
        const std::string name = each.name;
        const std::string brief = lowered(name.substr(begins(name, usual) ? usual.size() : common.size()));
        mNames.push_back({name, brief, each.value, each.isEndMarker});
        if (!each.isEndMarker) {
            mShortNames.push_back(brief);
        }
    }
}

std::vector<const Names::Name*> Names::matching(const std::string& wanted, Match match) const {
    std::vector<const Name*> found;
    for (const Name& name : mNames) {
        if (match(name.brief, wanted) && (!name.isEndMarker || match == isSame)) {
            found.push_back(&name);
        }
    }
    return found;
}

std::int32_t Names::valueOf(const std::string& word) const {
    if (word.size() > kLongestWord) {
        throw UnknownName("'" + shown(word) + "' is not one of " + listed());
    }
    std::string wanted = lowered(word);
    const auto full =
        std::find_if(mNames.begin(), mNames.end(), [&](const Name& name) { return lowered(name.full) == wanted; });
    if (full != mNames.end()) {
        return full->value;
    }
    std::replace(wanted.begin(), wanted.end(), '-', '_');
    for (const Match match : {isSame, isSameButForUnderscores, endsWithWord, begins, holds}) {
        const auto found = matching(wanted, match);
        if (wanted.empty() || found.empty()) {
            continue;
        }
        if (std::any_of(found.begin(), found.end(),
                        [&found](const Name* name) { return name->value != found.front()->value; })) {
            std::vector<std::string> candidates;
            for (const Name* const name : found) {
                candidates.push_back(name->brief);
            }
            throw UnknownName("'" + shown(word) + "' may be " + joined(candidates));
        }
        return found.front()->value;
    }
    throw UnknownName("'" + shown(word) + "' is not one of " + listed() + hintFor(word));
}

std::string Names::hintFor(const std::string& word) const {
    const std::string hint = nearestHint(word, mShortNames);
    if (!hint.empty()) {
        return hint;
    }
    std::vector<std::string> full;
    for (const Name& name : mNames) {
        if (!name.isEndMarker) {
            full.push_back(name.full);
        }
    }
    return nearestHint(word, full);
}

std::string Names::shortNameOf(std::int32_t value) const {
    const auto found =
        std::find_if(mNames.begin(), mNames.end(), [value](const Name& name) { return name.value == value; });
    return found != mNames.end() ? found->brief : "";
}

std::string Names::listed() const {
    if (mShortNames.size() <= kManyNames) {
        return joined(mShortNames);
    }
    return joined({mShortNames.begin(), mShortNames.begin() + kManyNames}) + " and " +
           std::to_string(mShortNames.size() - kManyNames) + " more of " + mOf;
}

const Names& namesOf(const Enumeration& enumeration) {
    static std::mutex mutex;
    static auto* const known = new std::map<const Enumeration*, Names>();
    const std::lock_guard<std::mutex> guard(mutex);
    const auto found = known->find(&enumeration);
    if (found != known->end()) {
        return found->second;
    }
    const std::vector<Enumerator> enumerators(enumeration.values.begin(), enumeration.values.end());
    return known->emplace(&enumeration, Names(enumeration.name, enumerators)).first->second;
}

} // namespace kelutv::wire
