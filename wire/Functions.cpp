#include "wire/Function.h"

#include <algorithm>
#include <cstring>

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

/** Looks at the length of those alone that begin alike, since there are many. */
bool isSame(const char* own, const std::string& name) {
    return std::strcmp(own, name.c_str()) == 0 && std::strlen(own) == name.size();
}

} // namespace

std::vector<const Function*> functionsNamed(const std::string& name) {
    const auto all = allFunctions();
    const auto* const full =
        std::find_if(all.begin(), all.end(), [&](const Function& function) { return isSame(function.name, name); });
    return full != all.end()
               ? std::vector<const Function*>{full}
               : functionsWith([&](const Function& function) { return isSame(function.shortName, name); });
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
