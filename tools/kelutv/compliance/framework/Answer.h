#pragma once

#include "tools/kelutv/compliance/framework/Television.h"
#include "tools/kelutv/snapshot/Readings.h"
#include "wire/codec/ReplyReader.h"
#include "wire/codec/Request.h"

#include <vector>

namespace kelutv::tool::compliance {

/** A request, its reply, and what the catalogue says of both. */
struct Answer {
    Exchange exchange;
    wire::Request request;
    /** What the request does; that of a request that the catalogue does not know has any words as its reply. */
    const wire::Operation* operation;
    wire::ReplyReading reading;

    /** Whether a reply came and its result word is 0. */
    bool isSuccess() const { return exchange.status == 0 && reading.hasResult && reading.reply.result == 0; }
};

/** Reads the reply by what was asked for. */
Answer answerIn(Exchange exchange);

/** Sends the bytes and reads the reply by what they ask for. */
Answer answerTo(Television& television, const Bytes& request);

/** The requests that a call of this function makes, as the library writes them. */
std::vector<Bytes> requestsFor(const Reading& reading);

} // namespace kelutv::tool::compliance
