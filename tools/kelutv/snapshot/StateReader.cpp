#include "tools/kelutv/snapshot/StateReader.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/service/ReplyCheck.h"
#include "tools/kelutv/snapshot/StateText.h"
#include "wire/StateForm.h"
#include "wire/codec/ByteReader.h"
#include "wire/text/Describe.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

bool isZero(const wire::Value& value) { return value == wire::Value(0) || value == wire::Value(0.0); }

/** Cuts off the zeros with which a block of fixed length is filled up behind what the state has. */
void cutFill(const wire::Operation& operation, wire::Values& values) {
    const std::size_t fields = operation.reply.size();
    if (fields == 0 || operation.reply[fields - 1].count <= 1) {
        return;
    }
    const std::size_t least = std::max<std::size_t>(wire::formOf(*operation.rule.key).values.size(), 1);
    while (values.size() > least && isZero(values.back())) {
        values.pop_back();
    }
}

wire::Values keptIn(const wire::Operation& operation, const wire::Reply& reply) {
    wire::Values values = wire::handedOutIn(operation, reply);
    cutFill(operation, values);
    return values;
}

Json valuesOf(const CallResult& call) {
    Json values = Json::array({call.result});
    for (const auto& [name, value] : call.outputs.members()) {
        values.add(value);
    }
    return values;
}

/** The state that the only request of a call reads; leaves the text empty when there is none. */
StateRead stateIn(const CallResult& call) {
    if (call.transactions.size() != 1) {
        return {};
    }
    const interposition::Transaction& transaction = call.transactions.front();
    const wire::Request request = decodeRequest(transaction.request).request;
    const wire::Operation& operation = operationFor(request);
    const wire::StateRule& rule = operation.rule;
    if (rule.access != wire::StateRule::Access::Get || request.refusal) {
        return {};
    }
    return {stateText(*rule.key, wire::valuesOf(rule.indexes, request.arguments)),
            documentOf(keptIn(operation, decodeReply(operation, transaction.reply).reply)), "", Json()};
}

/** The first word of the last answer. */
Json resultIn(const CallResult& call) {
    if (call.transactions.empty()) {
        return {};
    }
    const std::vector<std::uint8_t>& bytes = call.transactions.back().reply;
    wire::ByteReader reply(bytes.data(), bytes.size());
    std::int32_t result = 0;
    return reply.read(result) ? Json(result) : Json();
}

} // namespace

StateRead readState(const Reading& reading) {
    const CallResult call = tryFunction(*reading.function, reading.arguments);
    StateRead read = stateIn(call);
    if (read.state.empty()) {
        read = {readingText(reading), valuesOf(call), "", Json()};
    }
    read.result = resultIn(call);
    if (const auto failure = failureIn(call.transactions, reading.function->statusIsValue)) {
        read.values = Json();
        read.refusal = (failure->result ? "refused: " : "malformed: ") + failure->text;
    }
    return read;
}

} // namespace kelutv::tool
