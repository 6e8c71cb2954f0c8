#include "simulator/television/StateRequests.h"

#include "simulator/television/HandlerTable.h"
#include "simulator/television/StateAccess.h"

#include <cstddef>

namespace kelutv::simulator {

namespace {

/** Puts the values where the operands take them from; the last operand takes all that is left. */
void spread(const wire::Rows<wire::Operand>& operands, const wire::Values& values, wire::Arguments& arguments) {
    for (std::size_t i = 0; i < operands.size() && i < values.size(); ++i) {
        if (operands[i].index >= 0) {
            const auto first = values.begin() + static_cast<std::ptrdiff_t>(i);
            arguments[static_cast<std::size_t>(operands[i].index)].assign(first, i + 1 == operands.size() ? values.end()
                                                                                                          : first + 1);
        }
    }
}

wire::Request requestFor(const wire::Command& command, const wire::Values& indexes, const wire::Values& values) {
    wire::Request request;
    request.command = &command;
    request.operation = &command.operation;
    request.arguments.assign(command.operation.request.size(), {std::int32_t{0}});
    spread(command.operation.rule.indexes, indexes, request.arguments);
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

std::optional<wire::Refusal> setByRequest(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes,
                                          const wire::Values& values) {
    if (auto refusal = objectionToIndexes(equipment, key, indexes)) {
        return refusal;
    }
    if (const wire::Command* const command = handledCommand(key, wire::StateRule::Access::Set)) {
        return refusalOf(performed(equipment, requestFor(*command, indexes, values)));
    }
    if (handledCommand(key, wire::StateRule::Access::Get) != nullptr) {
        return wire::Refusal{wire::Result::OutOfRange,
                             std::string(key.name) + " is derived from other states and cannot be set"};
    }
    return setState(equipment, key, indexes, values);
}

Reading readByRequest(Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes) {
    if (auto refusal = objectionToIndexes(equipment, key, indexes)) {
        return {refusal, {}};
    }
    const wire::Command* const command = handledCommand(key, wire::StateRule::Access::Get);
    if (command == nullptr) {
        return {std::nullopt, readState(equipment, key, indexes)};
    }
    const wire::Reply reply = performed(equipment, requestFor(*command, indexes, {}));
    Reading reading{refusalOf(reply), {}};
    for (const wire::Values& field : reply.fields) {
        reading.values.insert(reading.values.end(), field.begin(), field.end());
    }
    return reading;
}

bool isPlainState(const Equipment& equipment, const wire::StateKey& key, const wire::Values& indexes) {
    return !isSetByCommandOfItsOwn(key) && handledCommand(key, wire::StateRule::Access::Get) == nullptr &&
           !equipment.sources.derived(key, indexes);
}

bool isKeptState(const Equipment& equipment, const wire::StateKey& key) {
    const wire::Values anyIndexes(key.indexes.size(), std::int32_t{0});
    return handledCommand(key, wire::StateRule::Access::Get) == nullptr && !equipment.sources.derived(key, anyIndexes);
}

bool isSetByCommandOfItsOwn(const wire::StateKey& key) {
    return handledCommand(key, wire::StateRule::Access::Set) != nullptr;
}

} // namespace kelutv::simulator
