#pragma once

#include "tools/kelutv/output/Output.h"
#include "tools/kelutv/text/Hex.h"
#include "wire/Function.h"
#include "wire/codec/ReplyReader.h"
#include "wire/codec/Request.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** A request read from its bytes, and what is wrong with it at which of them. */
struct DecodedRequest {
    wire::Request request;
    std::optional<wire::ReplyFlaw> flaw;
};

/** `commandAt` is the byte at which the command begins; without it, the command stands behind the interface token. */
DecodedRequest decodeRequest(const Bytes& bytes, std::optional<std::size_t> commandAt = std::nullopt);

/** What the reply to a request is read by; that of a command without a row takes all words behind the result. */
const wire::Operation& operationFor(const wire::Request& request);

wire::ReplyReading decodeReply(const wire::Operation& operation, const Bytes& bytes);

/** One argument or field. */
struct NamedValue {
    /** Null for a field without a name of its own. */
    const char* name;
    wire::Encoding encoding;
    const wire::Enumeration* names;
    wire::Values values;
};

/** The arguments in wire order, as far as they could be read. */
std::vector<NamedValue> argumentsOf(const wire::Request& request);

/** What stands behind the result word. */
std::vector<NamedValue> fieldsOf(const wire::Operation& operation, const wire::Reply& reply);

/** The functions that send such a request: any item, or its item. */
std::vector<const wire::Function*> sendersOf(const wire::Request& request);

/** `channel = 0 KELU_TV_AUDIO_CHANNEL_SPEAKER`. */
std::string lineOf(const NamedValue& value);

/** `{"name": ..., "value": ...}`, without a name where it has none, and with `enumerator` for a number of an
 * enumeration.
 */
Json documentOf(const NamedValue& value);

/** `{"command": ..., "number": ..., "item": ..., "arguments": [...], "fault": ...}`. */
Json documentOf(const DecodedRequest& decoded);

/** `{"result": ..., "name": ..., "fields": [...], "fault": ...}`, the name of a result that has one. */
Json documentOf(const wire::Operation& operation, const wire::ReplyReading& reading);

/** `0: 35`, with what is wrong in brackets. */
std::string textOf(const wire::Operation& operation, const wire::ReplyReading& reading);

/** Why there is no reply, by the status of the transport, which is not 0. */
std::string noReplyText(std::int32_t status);

/** `TEXT (at byte N)`. */
std::string textOf(const wire::ReplyFlaw& flaw);

} // namespace kelutv::tool
