#include "wire/text/RequestPattern.h"

#include "wire/text/Describe.h"
#include "wire/text/Names.h"
#include "wire/text/Nearest.h"
#include "wire/text/Numbers.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <set>

namespace kelutv::wire {

RequestPattern::RequestPattern(const std::string& word)
    : mIsAny(word == "any" || word == "*"), mNumber(int32Of(word)), mPattern(word, names()) {
    if (mIsAny) {
        return;
    }
    if (mNumber) {
        if (findCommand(*mNumber) == nullptr) {
            throw UnknownName("there is no command " + shown(word));
        }
        return;
    }
    const std::vector<std::string> all = names();
    if (word.empty() || !mPattern.matchesAny(all)) {
        throw UnknownName("there is no command or item '" + shown(word) + "'" + nearestHint(word, all));
    }
}

bool RequestPattern::matches(const Request& request) const {
    if (mIsAny) {
        return true;
    }
    if (mNumber) {
        return request.number == mNumber;
    }
    if (request.command == nullptr) {
        return false;
    }
    const std::string item = itemNameOf(request);
    return mPattern.matches(request.command->name) || (!item.empty() && mPattern.matches(item));
}

std::vector<std::string> RequestPattern::names() {
    std::vector<std::string> names;
    std::set<const Enumeration*> items;
    for (const Command& command : allCommands()) {
        names.emplace_back(command.name);
        if (command.hasItems && command.operation.request[0].names != nullptr) {
            items.insert(command.operation.request[0].names);
        }
    }
    for (const Enumeration* const enumeration : items) {
        for (const Enumerator& item : enumeration->values) {
            if (!item.isEndMarker) {
                names.emplace_back(item.name);
            }
        }
    }
    return names;
}

} // namespace kelutv::wire
