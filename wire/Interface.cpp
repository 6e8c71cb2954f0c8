#include "wire/Interface.h"

#include <algorithm>
#include <cstddef>
#include <tuple>

namespace kelutv::wire {

namespace {

/** In a table by ascending name. */
template <typename Row> const Row* findNamed(const Rows<Row>& rows, std::string_view name) {
    const auto* const found = std::lower_bound(
        rows.begin(), rows.end(), name, [](const Row& row, std::string_view wanted) { return row.name < wanted; });
    return found != rows.end() && found->name == name ? found : nullptr;
}

} // namespace

const Command* findCommand(std::int32_t value) {
    const Rows<Command> commands = allCommands();
    const auto* const found =
        std::lower_bound(commands.begin(), commands.end(), value,
                         [](const Command& row, std::int32_t wanted) { return row.value < wanted; });
    return found != commands.end() && found->value == value ? found : nullptr;
}

const StateKey* findState(std::string_view name) { return findNamed(allStates(), name); }

const Enumeration* findEnumeration(std::string_view name) { return findNamed(allEnumerations(), name); }

std::vector<std::string> stateNames() {
    std::vector<std::string> names;
    for (const StateKey& key : allStates()) {
        names.emplace_back(key.name);
    }
    return names;
}

std::string meaningOf(std::string_view name) {
    const Meaning* const found = findNamed(allMeanings(), name);
    return found != nullptr ? found->text : "";
}

const Enumerator* findEnumerator(std::string_view name) { return findNamed(allEnumerators(), name); }

Values valuesOf(const Rows<Operand>& operands, const Arguments& arguments) {
    Values values;
    for (const Operand& operand : operands) {
        if (operand.index < 0) {
            values.emplace_back(operand.literal);
        } else {
            const Values& argument = arguments[static_cast<std::size_t>(operand.index)];
            values.insert(values.end(), argument.begin(), argument.end());
        }
    }
    return values;
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

} // namespace kelutv::wire
