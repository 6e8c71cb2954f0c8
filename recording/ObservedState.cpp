#include "recording/ObservedState.h"

#include "wire/StateForm.h"
#include "wire/codec/ReplyReader.h"
#include "wire/text/Describe.h"

#include <cstddef>

namespace kelutv::recording {

namespace {

bool isZero(const wire::Value& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return number != nullptr && *number == 0;
}

/** As many as the state has. */
void fit(wire::Values& values, const wire::StateForm& form) {
    const std::size_t least = form.values.empty() ? 1 : form.values.size();
    while (values.size() > least && (!form.isOpen || isZero(values.back()))) {
        values.pop_back();
    }
}

} // namespace

std::optional<ObservedState> observedState(const wire::Request& request, const std::optional<Bytes>& reply) {
    using Access = wire::StateRule::Access;
    if (request.operation == nullptr || request.refusal || !reply || request.operation->rule.access == Access::None) {
        return std::nullopt;
    }
    const wire::Operation& operation = *request.operation;
    wire::ByteReader bytes(reply->data(), reply->size());
    const wire::ReplyReading reading = wire::readReply(operation, bytes);
    const bool isSet = operation.rule.access == Access::Set;
    const bool isValue = !isSet && operation.shape == wire::Shape::Status;
    if (!reading.hasResult || reading.flaw || (reading.reply.result != 0 && !isValue)) {
        return std::nullopt;
    }
    ObservedState state{operation.rule.key, wire::valuesOf(operation.rule.indexes, request.arguments),
                        isSet ? wire::valuesOf(operation.rule.values, request.arguments)
                              : wire::handedOutIn(operation, reading.reply),
                        isSet};
    fit(state.values, wire::formOf(*operation.rule.key));
    return state;
}

} // namespace kelutv::recording
