#include "SlotAccess.h"

#include "Settings.h"
#include "Special.h"

#include <cstddef>

namespace simulator {

namespace {

/** Puts the scalars where the operands take them from; the last operand takes all that is left. */
void spread(const Rows<Operand>& operands, const Scalars& scalars, Arguments& arguments) {
    for (std::size_t i = 0; i < operands.size() && i < scalars.size(); ++i) {
        if (operands[i].index >= 0) {
            const auto first = scalars.begin() + static_cast<std::ptrdiff_t>(i);
            arguments[static_cast<std::size_t>(operands[i].index)].assign(
                first, i + 1 == operands.size() ? scalars.end() : first + 1);
        }
    }
}

Request requestFor(const Command& command, const Scalars& keys, const Scalars& values) {
    Request request;
    request.command = &command;
    request.operation = &command.operation;
    request.arguments.assign(command.operation.request.size(), {std::int32_t{0}});
    spread(command.operation.rule.keys, keys, request.arguments);
    spread(command.operation.rule.values, values, request.arguments);
    return request;
}

/** The command that sets or reads the slot and does more, or other, than keeping it; none for most. */
const Command* specialCommand(const StateSlot& slot, Rule::Kind kind) {
    for (const Command& command : allCommands()) {
        const Rule& rule = command.operation.rule;
        if (rule.slot == &slot && rule.kind == kind && specialHandler(requestFor(command, {}, {})) != nullptr) {
            return &command;
        }
    }
    return nullptr;
}

Reply performed(Equipment& equipment, const Request& request) { return specialHandler(request)(equipment, request); }

std::optional<Fault> faultOf(const Reply& reply) {
    return reply.result == 0 ? std::nullopt : std::optional(Fault{static_cast<Result>(reply.result), reply.complaint});
}

} // namespace

std::optional<Fault> setLikeRequest(Equipment& equipment, const StateSlot& slot, const Scalars& keys,
                                    const Scalars& values) {
    if (auto fault = objectionToKeys(equipment, slot, keys)) {
        return fault;
    }
    if (const Command* const command = specialCommand(slot, Rule::Kind::Set)) {
        return faultOf(performed(equipment, requestFor(*command, keys, values)));
    }
    if (specialCommand(slot, Rule::Kind::Get) != nullptr) {
        return Fault{Result::OutOfRange, std::string(slot.name) + " follows from other states and cannot be set"};
    }
    return setState(equipment, slot, keys, values);
}

Reading readLikeRequest(Equipment& equipment, const StateSlot& slot, const Scalars& keys) {
    if (auto fault = objectionToKeys(equipment, slot, keys)) {
        return {fault, {}};
    }
    const Command* const command = specialCommand(slot, Rule::Kind::Get);
    if (command == nullptr) {
        return {std::nullopt, readState(equipment, slot, keys)};
    }
    const Reply reply = performed(equipment, requestFor(*command, keys, {}));
    Reading reading{faultOf(reply), {}};
    for (const Scalars& field : reply.fields) {
        reading.values.insert(reading.values.end(), field.begin(), field.end());
    }
    return reading;
}

bool isJustKept(const Equipment& equipment, const StateSlot& slot, const Scalars& keys) {
    return specialCommand(slot, Rule::Kind::Set) == nullptr && specialCommand(slot, Rule::Kind::Get) == nullptr &&
           !equipment.sources.workedOut(slot, keys);
}

} // namespace simulator
