#include "Table.h"

#include <algorithm>
#include <string_view>
#include <tuple>

namespace simulator {

const Command* findCommand(std::int32_t value) {
    const Rows<Command> commands = allCommands();
    const auto* const found =
        std::lower_bound(commands.begin(), commands.end(), value,
                         [](const Command& row, std::int32_t wanted) { return row.value < wanted; });
    return found != commands.end() && found->value == value ? found : nullptr;
}

const StateSlot* findState(const char* name) {
    const Rows<StateSlot> states = allStates();
    const auto* const found = std::find_if(
        states.begin(), states.end(), [name](const StateSlot& slot) { return std::string_view(slot.name) == name; });
    return found != states.end() ? found : nullptr;
}

const Source* findSource(std::int32_t id) {
    const Rows<Source> sources = allSources();
    const auto* const found =
        std::find_if(sources.begin(), sources.end(), [id](const Source& source) { return source.id == id; });
    return found != sources.end() ? found : nullptr;
}

const Operation* operationOf(const Command& command, const Arguments& arguments) {
    if (!command.hasItems) {
        return &command.operation;
    }
    const auto wanted = std::make_tuple(command.value, std::get<std::int32_t>(arguments.front().front()));
    const auto keyOf = [](const Item& row) { return std::make_tuple(row.command, row.value); };
    const Rows<Item> items = allItems();
    const auto* const found = std::lower_bound(items.begin(), items.end(), wanted,
                                               [&keyOf](const Item& row, const auto& key) { return keyOf(row) < key; });
    return found != items.end() && keyOf(*found) == wanted ? &found->operation : nullptr;
}

} // namespace simulator
