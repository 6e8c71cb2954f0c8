#include "tools/kelutv/compliance/reports/ExchangeText.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/text/HexDump.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/codec/ReplyReader.h"
#include "wire/text/Describe.h"
#include "wire/text/Shown.h"

#include <algorithm>

namespace kelutv::tool::compliance {

namespace {

constexpr std::size_t kMostOfDescription = 2000;
constexpr std::size_t kMostDumped = 512;

std::vector<std::string> dumpOf(const Bytes& bytes) {
    const auto kept = static_cast<std::ptrdiff_t>(std::min(bytes.size(), kMostDumped));
    std::vector<std::string> lines = hexDump({bytes.begin(), bytes.begin() + kept}, 0, true);
    if (bytes.size() > kMostDumped) {
        lines.push_back("... " + counted(bytes.size(), "byte") + " in all");
    }
    return lines;
}

/** A request that the catalogue knows says how much its reply has to have. */
wire::ReplyReading replyTo(const wire::Request& request, const Bytes& reply) {
    wire::ByteReader data(reply.data(), reply.size());
    return wire::readReply(operationFor(request), data, request.operation != nullptr ? &request.arguments : nullptr);
}

} // namespace

ExchangeText textOf(const Exchange& exchange) {
    const DecodedRequest decoded = decodeRequest(exchange.request);
    const std::string fault = decoded.flaw ? " [" + tool::textOf(*decoded.flaw) + ']' : "";
    ExchangeText text{wire::shown(wire::describe(decoded.request), kMostOfDescription) + fault,
                      noReplyText(exchange.status),
                      dumpOf(exchange.request),
                      {}};
    if (exchange.status == 0) {
        text.reply = wire::shown(tool::textOf(operationFor(decoded.request), replyTo(decoded.request, exchange.reply)),
                                 kMostOfDescription);
        text.replyBytes = dumpOf(exchange.reply);
    }
    return text;
}

} // namespace kelutv::tool::compliance
