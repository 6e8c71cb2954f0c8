#include "Television.h"

#include "Control.h"
#include "Sources.h"
#include "Special.h"

#include <kelutv/commands.h>

#include <algorithm>
#include <optional>

namespace simulator {

namespace {

Scalars collect(const Rows<Operand>& operands, const Arguments& arguments) {
    Scalars scalars;
    for (const Operand& operand : operands) {
        if (operand.index < 0) {
            scalars.emplace_back(operand.literal);
        } else {
            const Scalars& argument = arguments[static_cast<std::size_t>(operand.index)];
            scalars.insert(scalars.end(), argument.begin(), argument.end());
        }
    }
    return scalars;
}

bool inRange(const StateSlot& slot, const Scalars& values) {
    return !slot.bounded || std::all_of(values.begin(), values.end(), [&slot](const Scalar& value) {
        const auto* const number = std::get_if<std::int32_t>(&value);
        return number == nullptr || (*number >= slot.low && *number <= slot.high);
    });
}

std::string rangeOf(const StateSlot& slot) {
    return std::string(slot.name) + " goes from " + std::to_string(slot.low) + " to " + std::to_string(slot.high);
}

std::optional<Fault> objectionToSource(const Scalar& scalar) {
    const auto id = std::get<std::int32_t>(scalar);
    if (findSource(id) == nullptr) {
        return Fault{Result::UnknownSource, "there is no source " + std::to_string(id)};
    }
    return std::nullopt;
}

std::optional<Fault> objection(const StateSlot& slot, const Scalars& keys, const Scalars& values) {
    if (!inRange(slot, values)) {
        return Fault{Result::OutOfRange, rangeOf(slot)};
    }
    if (slot.keyIsSource) {
        return objectionToSource(keys.front());
    }
    return slot.valueIsSource && !values.empty() ? objectionToSource(values.front()) : std::nullopt;
}

} // namespace

Reply Television::perform(const Request& request) {
    if (const Handler handler = specialHandler(request)) {
        return handler(mEquipment, request);
    }
    const Rule& rule = request.operation->rule;
    return rule.kind == Rule::Kind::None ? replyWith(*request.operation, {}) : apply(request, rule);
}

Reply Television::apply(const Request& request, const Rule& rule) {
    const Scalars keys = collect(rule.keys, request.arguments);
    const Scalars values = collect(rule.values, request.arguments);
    if (const auto fault = objection(*rule.slot, keys, values)) {
        return refusal(*fault);
    }
    if (rule.kind == Rule::Kind::Set) {
        store(request.command->value, *rule.slot, keys, values);
        return replyWith(*request.operation, {});
    }
    const auto consequence = workedOut(mEquipment.state, *rule.slot, keys);
    return replyWith(*request.operation, consequence ? *consequence : mEquipment.state.kept(*rule.slot, keys));
}

void Television::store(std::int32_t command, const StateSlot& slot, const Scalars& keys, const Scalars& values) {
    if (command == CMD_SOURCE_SELECTSOURCE) {
        selectSource(mEquipment.state, std::get<std::int32_t>(values.front()), std::get<std::int32_t>(keys.front()));
        return;
    }
    if (command == CMD_SOURCE_DESELECTSOURCE) {
        deselectSource(mEquipment.state, std::get<std::int32_t>(keys.front()));
    }
    mEquipment.state.keep(slot, keys, values);
}

std::optional<std::string> Television::control(const std::string& line) { return obey(mEquipment, line); }

} // namespace simulator
