#include "wire/text/FunctionNames.h"

#include "wire/text/Pattern.h"

namespace kelutv::wire {

std::vector<std::string> functionNames() {
    std::vector<std::string> names;
    for (const Function& function : allFunctions()) {
        names.emplace_back(function.shortName);
        names.emplace_back(function.name);
    }
    return names;
}

std::vector<const Function*> functionsMatching(const std::string& pattern) {
    const Pattern wanted(pattern, functionNames());
    std::vector<const Function*> ofModule;
    std::vector<const Function*> named;
    for (const Function& function : allFunctions()) {
        if (function.module == pattern) {
            ofModule.push_back(&function);
        }
        if (wanted.matches(function.shortName) || wanted.matches(function.name)) {
            named.push_back(&function);
        }
    }
    return ofModule.empty() ? named : ofModule;
}

} // namespace kelutv::wire
