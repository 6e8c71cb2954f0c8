#include "tools/kelutv/compliance/framework/Answer.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/decoding/Decoding.h"

#include <utility>

namespace kelutv::tool::compliance {

Answer answerIn(Exchange exchange) {
    wire::Request asked = decodeRequest(exchange.request).request;
    const wire::Operation& operation = operationFor(asked);
    Answer answer{std::move(exchange), std::move(asked), &operation, {}};
    wire::ByteReader reply(answer.exchange.reply.data(), answer.exchange.reply.size());
    answer.reading =
        wire::readReply(operation, reply, answer.request.operation != nullptr ? &answer.request.arguments : nullptr);
    return answer;
}

Answer answerTo(Television& television, const Bytes& request) { return answerIn(television.ask(request)); }

std::vector<Bytes> requestsFor(const Reading& reading) { return requestsOf(*reading.function, reading.arguments); }

} // namespace kelutv::tool::compliance
