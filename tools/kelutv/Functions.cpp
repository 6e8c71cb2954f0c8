#include "tools/kelutv/FunctionTables.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Nearest.h"
#include "tools/kelutv/text/Words.h"

#include <fnmatch.h>

#include <algorithm>

namespace kelutv::tool {

namespace {

std::vector<const Function*> gatherFunctions() {
    std::vector<const Function*> functions;
    for (const Rows<Function>& table : functionTables()) {
        for (const Function& function : table) {
            functions.push_back(&function);
        }
    }
    return functions;
}

template <typename Predicate> std::vector<const Function*> functionsWith(Predicate predicate) {
    std::vector<const Function*> found;
    std::copy_if(allFunctions().begin(), allFunctions().end(), std::back_inserter(found),
                 [&](const Function* function) { return predicate(*function); });
    return found;
}

std::vector<std::string> allNames() {
    std::vector<std::string> names;
    for (const Function* function : allFunctions()) {
        names.emplace_back(function->shortName);
        names.emplace_back(function->name);
    }
    return names;
}

std::string fullNames(const std::vector<const Function*>& functions) {
    std::vector<std::string> names;
    for (const Function* function : functions) {
        names.emplace_back(function->name);
    }
    return joined(names, ", ");
}

template <typename Predicate> std::vector<const Function*> functionsRequesting(Predicate predicate) {
    return functionsWith([&](const Function& function) {
        return std::any_of(function.requests.begin(), function.requests.end(), predicate);
    });
}

} // namespace

const std::vector<const Function*>& allFunctions() {
    static const std::vector<const Function*> functions = gatherFunctions();
    return functions;
}

const Function& functionNamed(const std::string& name) {
    const auto full = functionsWith([&](const Function& function) { return function.name == name; });
    const auto found =
        full.empty() ? functionsWith([&](const Function& function) { return function.shortName == name; }) : full;
    if (found.empty()) {
        throw UsageError("there is no function '" + name + "'" + nearestHint(name, allNames()));
    }
    if (found.size() > 1) {
        throw UsageError("'" + name + "' is short for several functions: " + fullNames(found));
    }
    return *found.front();
}

std::vector<const Function*> functionsMatching(const std::string& pattern) {
    const auto module = functionsWith([&](const Function& function) { return function.module == pattern; });
    if (!module.empty()) {
        return module;
    }
    const bool isPattern = pattern.find_first_of("*?") != std::string::npos;
    const std::string wanted = lowered(isPattern ? pattern : '*' + pattern + '*');
    return functionsWith([&](const Function& function) {
        return ::fnmatch(wanted.c_str(), lowered(function.shortName).c_str(), 0) == 0 ||
               ::fnmatch(wanted.c_str(), lowered(function.name).c_str(), 0) == 0;
    });
}

std::vector<const Function*> functionsSending(std::int32_t command) {
    return functionsRequesting([&](const Request& request) { return request.commandValue == command; });
}

std::vector<const Function*> functionsSending(std::int32_t command, std::int32_t item) {
    return functionsRequesting([&](const Request& request) {
        return request.commandValue == command && request.item != nullptr && request.itemValue == item;
    });
}

} // namespace kelutv::tool
