#include "simulator/television/SlotAccess.h"

#include "simulator/television/HandlerTable.h"
#include "simulator/television/Settings.h"

#include <cstddef>

namespace kelutv::simulator {

namespace {

/** Puts the scalars where the operands take them from; the last operand takes all that is left. */
void spread(const wire::Rows<wire::Operand>& operands, const wire::Values& scalars, wire::Arguments& arguments) {
    for (std::size_t i = 0; i < operands.size() && i < scalars.size(); ++i) {
        if (operands[i].index >= 0) {
            const auto first = scalars.begin() + static_cast<std::ptrdiff_t>(i);
            arguments[static_cast<std::size_t>(operands[i].index)].assign(
                first, i + 1 == operands.size() ? scalars.end() : first + 1);
        }
    }
}

wire::Request requestFor(const wire::Command& command, const wire::Values& keys, const wire::Values& values) {
    wire::Request request;
    request.command = &command;
    request.operation = &command.operation;
    request.arguments.assign(command.operation.request.size(), {std::int32_t{0}});
    spread(command.operation.rule.keys, keys, request.arguments);
    spread(command.operation.rule.values, values, request.arguments);
    return request;
}

wire::Reply performed(Equipment& equipment, const wire::Request& request) {
    return handlerOf(request)(equipment, request);
}

std::optional<wire::Refusal> refusalOf(const wire::Reply& reply) {
    return reply.result == 0 ? std::nullopt
                             : std::optional(wire::Refusal{static_cast<wire::Result>(reply.result), reply.complaint});
}

} // namespace

std::optional<wire::Refusal> setLikeRequest(Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys,
                                            const wire::Values& values) {
    if (auto refusal = objectionToKeys(equipment, slot, keys)) {
        return refusal;
    }
    if (const wire::Command* const command = handledCommand(slot, wire::StateRule::Access::Set)) {
        return refusalOf(performed(equipment, requestFor(*command, keys, values)));
    }
    if (handledCommand(slot, wire::StateRule::Access::Get) != nullptr) {
        return wire::Refusal{wire::Result::OutOfRange,
                             std::string(slot.name) + " follows from other states and cannot be set"};
    }
    return setState(equipment, slot, keys, values);
}

Reading readLikeRequest(Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys) {
    if (auto refusal = objectionToKeys(equipment, slot, keys)) {
        return {refusal, {}};
    }
    const wire::Command* const command = handledCommand(slot, wire::StateRule::Access::Get);
    if (command == nullptr) {
        return {std::nullopt, readState(equipment, slot, keys)};
    }
    const wire::Reply reply = performed(equipment, requestFor(*command, keys, {}));
    Reading reading{refusalOf(reply), {}};
    for (const wire::Values& field : reply.fields) {
        reading.values.insert(reading.values.end(), field.begin(), field.end());
    }
    return reading;
}

bool isJustKept(const Equipment& equipment, const wire::StateSlot& slot, const wire::Values& keys) {
    return handledCommand(slot, wire::StateRule::Access::Set) == nullptr &&
           handledCommand(slot, wire::StateRule::Access::Get) == nullptr && !equipment.sources.workedOut(slot, keys);
}

} // namespace kelutv::simulator
