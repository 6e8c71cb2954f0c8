#pragma once

#include "Function.h"
#include "HexInput.h"
#include "Output.h"

#include "simulator/ReplyReader.h"
#include "simulator/Request.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** A request read from its bytes, and what is wrong with it at which of them. */
struct DecodedRequest {
    simulator::Request request;
    std::optional<simulator::ReplyFlaw> flaw;
};

DecodedRequest decodeRequest(const Bytes& bytes);

/** What the reply to a request is read by; that of a command without a row takes all words behind the result. */
const simulator::Operation& operationFor(const simulator::Request& request);

simulator::ReplyReading decodeReply(const simulator::Operation& operation, const Bytes& bytes);

/** One argument or field. */
struct NamedValue {
    /** Null for a field without a name of its own. */
    const char* name;
    simulator::Kind kind;
    const simulator::EnumerationNames* names;
    simulator::Scalars scalars;
};

/** The arguments in wire order, as far as they could be read. */
std::vector<NamedValue> argumentsOf(const simulator::Request& request);

/** What stands behind the result word. */
std::vector<NamedValue> fieldsOf(const simulator::Operation& operation, const simulator::Reply& reply);

/** The name of the item that a request of an item command carries; null when there is none. */
std::string itemNameOf(const simulator::Request& request);

/** The functions that send such a request: any item, or its item. */
std::vector<const Function*> sendersOf(const simulator::Request& request);

/** `channel = 0 KELU_TV_AUDIO_CHANNEL_SPEAKER`. */
std::string lineOf(const NamedValue& value);

/** `{"command": ..., "number": ..., "item": ..., "arguments": [...], "fault": ...}`. */
Json documentOf(const DecodedRequest& decoded);

/** `{"result": ..., "fields": [...], "fault": ...}`. */
Json documentOf(const simulator::Operation& operation, const simulator::ReplyReading& reading);

/** `0: 35`, with what is wrong in brackets. */
std::string textOf(const simulator::Operation& operation, const simulator::ReplyReading& reading);

/** `TEXT (at byte N)`. */
std::string textOf(const simulator::ReplyFlaw& flaw);

} // namespace kelutv::tool
