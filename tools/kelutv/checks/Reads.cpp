#include "tools/kelutv/checks/Reads.h"

#include "wire/Interface.h"

#include <algorithm>

namespace kelutv::tool {

bool takesAnyItem(const wire::Function& function) {
    return std::any_of(function.requests.begin(), function.requests.end(), [](const wire::SentRequest& request) {
        const wire::Command* const command = wire::findCommand(request.commandValue);
        return request.item == nullptr && command != nullptr && command->hasItems;
    });
}

bool isAnsweredRead(const wire::Function& function) {
    return function.effect.kind == wire::EffectKind::Read && function.requests.size() > 0 && !takesAnyItem(function);
}

std::chrono::nanoseconds timeOfCall(const CallResult& call) {
    std::chrono::nanoseconds time{0};
    for (const interposition::Transaction& transaction : call.transactions) {
        time += transaction.duration;
    }
    return time;
}

} // namespace kelutv::tool
