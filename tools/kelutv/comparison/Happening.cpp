#include "tools/kelutv/comparison/Happening.h"

#include "tools/kelutv/events/EventText.h"
#include "tools/kelutv/recordings/DecodedForm.h"
#include "wire/codec/Token.h"
#include "wire/text/Describe.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

using Kind = Happening::Kind;
using recording::Bytes;

bool beginsWith(const Bytes& bytes, const Bytes& token) {
    return !token.empty() && bytes.size() >= token.size() && std::equal(token.begin(), token.end(), bytes.begin());
}

/** How many bytes the token of a request has; 0 when it begins with none. */
std::size_t sizeOfToken(const Bytes& request) {
    wire::ByteReader reader(request.data(), request.size());
    return wire::readToken(reader) ? reader.position() : 0;
}

Bytes pieceOf(const Bytes& bytes, std::size_t from, std::size_t to) {
    return {bytes.begin() + static_cast<std::ptrdiff_t>(from), bytes.begin() + static_cast<std::ptrdiff_t>(to)};
}

Happening callOf(const recording::Transaction& transaction, const Bytes& token) {
    Happening call;
    call.kind = Kind::Call;
    call.number = transaction.status;
    call.reply = transaction.reply.value_or(Bytes());
    const bool isOwn = beginsWith(transaction.request, token);
    const std::size_t size = isOwn ? token.size() : sizeOfToken(transaction.request);
    call.hasToken = size > 0;
    call.token = isOwn ? Bytes() : pieceOf(transaction.request, 0, size);
    call.bytes = pieceOf(transaction.request, size, transaction.request.size());
    return call;
}

Happening eventOf(const recording::Event& event) {
    Happening happening;
    happening.kind = Kind::Event;
    happening.bytes = event.payload;
    happening.number = static_cast<std::int32_t>(event.event);
    return happening;
}

std::string callText(const Happening& call) {
    const DecodedRequest decoded = requestOf(call);
    const wire::Operation& operation = operationFor(decoded.request);
    return wire::describe(decoded.request) + (decoded.flaw ? " [" + textOf(*decoded.flaw) + ']' : "") + " -> " +
           (call.number != 0 ? noReplyText(call.number) : textOf(operation, decodeReply(operation, call.reply)));
}

std::string eventText(const Happening& event) {
    const ReceivedEvent received{{}, identifierOf(event), event.bytes};
    return "event " + meaningText(KnownEvent(received, recordedEvents()));
}

} // namespace

std::optional<Happening> happeningOf(const recording::Line& line, const Bytes& token) {
    if (const auto* const transaction = std::get_if<recording::Transaction>(&line.content)) {
        return callOf(*transaction, token);
    }
    if (const auto* const event = std::get_if<recording::Event>(&line.content)) {
        return eventOf(*event);
    }
    return std::holds_alternative<recording::Loss>(line.content) ? std::optional<Happening>(Happening{}) : std::nullopt;
}

DecodedRequest requestOf(const Happening& call) {
    return call.hasToken ? decodeRequest(call.bytes, 0) : decodeRequest(call.bytes);
}

std::uint32_t identifierOf(const Happening& event) { return static_cast<std::uint32_t>(event.number); }

std::string textOf(const Happening& happening) {
    switch (happening.kind) {
    case Kind::Call:
        return callText(happening);
    case Kind::Event:
        return eventText(happening);
    case Kind::Loss:
        break;
    }
    return "the service is gone";
}

} // namespace kelutv::tool
