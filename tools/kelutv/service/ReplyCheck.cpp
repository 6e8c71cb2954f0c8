#include "tools/kelutv/service/ReplyCheck.h"

#include "wire/codec/ReplyReader.h"
#include "wire/codec/Request.h"
#include "wire/text/ResultNames.h"

namespace kelutv::tool {

namespace {

using interposition::Transaction;

/** The whole reply by what the request was; of one that the catalogue does not know only the result. */
wire::ReplyReading readReplyOf(const Transaction& transaction) {
    wire::ByteReader request(transaction.request.data(), transaction.request.size());
    wire::ByteReader reply(transaction.reply.data(), transaction.reply.size());
    const wire::Request asked = wire::readRequest(request);
    if (asked.operation != nullptr) {
        return wire::readReply(*asked.operation, reply, &asked.arguments);
    }
    wire::ReplyReading reading;
    reading.hasResult = reply.read(reading.reply.result);
    return reading;
}

std::optional<ReplyFailure> failureIn(const Transaction& transaction, bool isValue) {
    const wire::ReplyReading reading = readReplyOf(transaction);
    if (!reading.hasResult) {
        return ReplyFailure{"the service's answer has no result", std::nullopt};
    }
    const std::int32_t result = reading.reply.result;
    if (result != 0 && !isValue) {
        return ReplyFailure{"the service answered " + wire::resultText(result), result};
    }
    if (reading.flaw) {
        return ReplyFailure{"the service's answer is not as it should be: " + reading.flaw->text + " (at byte " +
                                std::to_string(reading.flaw->offset) + ')',
                            std::nullopt};
    }
    return std::nullopt;
}

} // namespace

std::optional<ReplyFailure> failureIn(const std::vector<Transaction>& transactions, bool isValue) {
    for (const Transaction& transaction : transactions) {
        if (transaction.status == 0) {
            if (auto failure = failureIn(transaction, isValue)) {
                return failure;
            }
        }
    }
    return std::nullopt;
}

} // namespace kelutv::tool
