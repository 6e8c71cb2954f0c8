#include "tools/kelutv/snapshot/StateRules.h"

#include "tools/kelutv/checks/Reads.h"

namespace kelutv::tool {

const wire::StateRule* ruleOf(const wire::Function& function) {
    if (function.requests.size() != 1 || takesAnyItem(function)) {
        return nullptr;
    }
    const wire::SentRequest& request = function.requests[0];
    const wire::Command* const command = wire::findCommand(request.commandValue);
    const wire::Operation* const operation =
        command != nullptr ? wire::operationOf(*command, {{wire::Value(request.itemValue)}}) : nullptr;
    const bool isOfState = operation != nullptr && operation->rule.access != wire::StateRule::Access::None;
    return isOfState ? &operation->rule : nullptr;
}

std::string nameOf(const wire::Function& function) {
    return wire::functionsNamed(function.shortName).size() == 1 ? function.shortName : function.name;
}

} // namespace kelutv::tool
