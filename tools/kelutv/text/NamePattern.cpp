#include "tools/kelutv/text/NamePattern.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/Interface.h"
#include "wire/text/Nearest.h"

#include <fnmatch.h>

#include <algorithm>

namespace kelutv::tool {

namespace {

/** The names of the commands and of their items. */
std::vector<std::string> allNames() {
    std::vector<std::string> names;
    for (const wire::Command& command : wire::allCommands()) {
        names.emplace_back(command.name);
        if (command.hasItems && command.operation.request[0].names != nullptr) {
            for (const wire::Enumerator& item : command.operation.request[0].names->values) {
                names.emplace_back(item.name);
            }
        }
    }
    return names;
}

} // namespace

NamePattern::NamePattern(const std::string& text)
    : mPattern(text.find_first_of("*?[") != std::string::npos ? text : '*' + text + '*') {
    requireMatch(text);
}

bool NamePattern::matches(const std::string& name) const {
    return ::fnmatch(mPattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0;
}

void NamePattern::requireMatch(const std::string& text) const {
    const std::vector<std::string> names = allNames();
    if (std::none_of(names.begin(), names.end(), [this](const std::string& name) { return matches(name); })) {
        throw UsageError("--filter: no command or item is called " + text + wire::nearestHint(text, names));
    }
}

} // namespace kelutv::tool
