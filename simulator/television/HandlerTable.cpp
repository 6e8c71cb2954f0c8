#include "simulator/television/HandlerTable.h"

#include <algorithm>

namespace kelutv::simulator {

namespace {

std::vector<CommandHandler> collectHandlers() {
    std::vector<CommandHandler> all;
    for (const CommandHandlers& part :
         {cecHandlers(), eepHandlers(), factoryHandlers(), powerHandlers(), settingHandlers(), teletextHandlers()}) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

bool handlesEveryRequestOf(const CommandHandler& row, const wire::Command& command) {
    return row.command == command.value && !row.item;
}

bool handles(const CommandHandler& row, const wire::Request& request) {
    return row.command == request.command->value && (!row.item || *row.item == numberAt(request, 0));
}

} // namespace

const std::vector<CommandHandler>& allHandlers() {
    static const auto* const handlers = new std::vector<CommandHandler>(collectHandlers());
    return *handlers;
}

Handler handlerOf(const wire::Request& request) {
    const auto found = std::find_if(allHandlers().begin(), allHandlers().end(),
                                    [&request](const CommandHandler& row) { return handles(row, request); });
    return found != allHandlers().end() ? found->handler : nullptr;
}

const wire::Command* handledCommand(const wire::StateKey& key, wire::StateRule::Access access) {
    const auto commands = wire::allCommands();
    const auto* const found = std::find_if(commands.begin(), commands.end(), [&](const wire::Command& command) {
        const wire::StateRule& rule = command.operation.rule;
        return rule.key == &key && rule.access == access &&
               std::any_of(allHandlers().begin(), allHandlers().end(),
                           [&command](const CommandHandler& row) { return handlesEveryRequestOf(row, command); });
    });
    return found != commands.end() ? found : nullptr;
}

} // namespace kelutv::simulator
