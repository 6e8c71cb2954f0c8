#include "simulator/text/RequestPattern.h"

#include "simulator/text/ControlWords.h"
#include "wire/text/EnumeratorNames.h"
#include "wire/text/Nearest.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace kelutv::simulator {

namespace {

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
        } else if (at < pattern.size() && pattern[at] == name[in]) {
            ++at;
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

std::string itemName(const wire::Operation& operation, std::int32_t item) {
    return wire::nameOfValue(item, operation.request[0].names);
}

/** Every name that can stand for requests. */
std::vector<std::string> allNames() {
    std::vector<std::string> names;
    for (const wire::Command& command : wire::allCommands()) {
        names.emplace_back(command.name);
    }
    for (const wire::Item& item : wire::allItems()) {
        names.push_back(itemName(item.operation, item.value));
    }
    return names;
}

} // namespace

RequestPattern::RequestPattern(const std::string& word) : mName(word == "any" ? "*" : word), mNumber(int32Of(word)) {
    if (mNumber) {
        if (wire::findCommand(*mNumber) == nullptr) {
            throw std::invalid_argument("there is no command " + word);
        }
        return;
    }
    const std::vector<std::string> names = allNames();
    if (std::none_of(names.begin(), names.end(), [this](const std::string& name) { return fits(mName, name); })) {
        throw std::invalid_argument("there is no command or item '" + word + "'" + wire::nearestHint(word, names));
    }
}

bool RequestPattern::matches(const wire::Request& request) const {
    if (mNumber) {
        return request.number == mNumber;
    }
    if (request.command == nullptr) {
        return mName == "*";
    }
    if (fits(mName, request.command->name)) {
        return true;
    }
    return request.operation != nullptr && request.command->hasItems &&
           fits(mName, itemName(*request.operation, std::get<std::int32_t>(request.arguments.front().front())));
}

} // namespace kelutv::simulator
