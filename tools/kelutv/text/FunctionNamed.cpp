#include "tools/kelutv/text/FunctionNamed.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/FunctionNames.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <vector>

namespace kelutv::tool {

const wire::Function& functionNamed(const std::string& name) {
    const auto found = wire::functionsNamed(name);
    if (found.empty()) {
        throw UsageError("there is no function '" + wire::shown(name) + "'" +
                         wire::nearestHint(name, wire::functionNames()));
    }
    if (found.size() > 1) {
        std::vector<std::string> names;
        for (const wire::Function* const function : found) {
            names.emplace_back(function->name);
        }
        throw UsageError("'" + wire::shown(name) + "' is short for several functions: " + joined(names, ", "));
    }
    return *found.front();
}

} // namespace kelutv::tool
