#include "wire/Function.h"

#include <algorithm>

namespace kelutv::wire {

namespace {

template <typename Predicate> std::vector<const Function*> functionsWith(Predicate isMeant) {
    std::vector<const Function*> found;
    for (const Function& function : allFunctions()) {
        if (isMeant(function)) {
            found.push_back(&function);
        }
    }
    return found;
}

template <typename Predicate> std::vector<const Function*> functionsRequesting(Predicate isMeant) {
    return functionsWith([&](const Function& function) {
        return std::any_of(function.requests.begin(), function.requests.end(), isMeant);
    });
}

} // namespace

std::vector<const Function*> functionsNamed(const std::string& name) {
    const auto full = functionsWith([&](const Function& function) { return function.name == name; });
    return full.empty() ? functionsWith([&](const Function& function) { return function.shortName == name; }) : full;
}

std::vector<const Function*> functionsSending(std::int32_t command) {
    return functionsRequesting([&](const SentRequest& request) { return request.commandValue == command; });
}

std::vector<const Function*> functionsSending(std::int32_t command, std::int32_t item) {
    return functionsRequesting([&](const SentRequest& request) {
        return request.commandValue == command && request.item != nullptr && request.itemValue == item;
    });
}

} // namespace kelutv::wire
