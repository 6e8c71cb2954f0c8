#include "tools/kelutv/decoding/Decoding.h"

#include "tools/kelutv/text/EnumeratedValue.h"
#include "tools/kelutv/text/Hex.h"
#include "wire/text/Describe.h"
#include "wire/text/ResultNames.h"

#include <binder/IBinder.h>

#include <algorithm>

namespace kelutv::tool {

namespace {

using wire::Result;

/** The reader stands where the argument begins that could not be read. */
std::size_t offsetOf(const wire::Request& request, const wire::ByteReader& data) {
    switch (request.refusal->result) {
    case Result::WrongToken:
        return 0;
    case Result::UnknownCommand:
        return request.argumentsAt - sizeof(std::int32_t);
    default:
        return data.position();
    }
}

/** An item without a row can be read all the same. */
bool isMalformed(const wire::Request& request) {
    return request.refusal && request.refusal->result != Result::UnknownItem;
}

Json valueOf(const wire::Value& value, wire::Encoding encoding) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        return *number;
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        return *real;
    }
    const auto& text = std::get<std::string>(value);
    return encoding == wire::Encoding::Bytes ? Json(hexOf({text.begin(), text.end()})) : Json(text);
}

bool isSingle(const NamedValue& value) {
    return value.values.size() == 1 && value.encoding != wire::Encoding::Ints &&
           value.encoding != wire::Encoding::Doubles;
}

Json documentOf(const std::vector<NamedValue>& values) {
    Json documents = Json::array();
    for (const NamedValue& value : values) {
        documents.add(documentOf(value));
    }
    return documents;
}

void addFlaw(Json& document, const std::optional<wire::ReplyFlaw>& flaw) {
    if (flaw) {
        document["fault"] = {{"offset", flaw->offset}, {"text", flaw->text}};
    }
}

/** A function that takes any item has none of its own. */
bool isSameItem(const wire::SentRequest& row, const wire::Request& request) {
    return row.commandValue == request.command->value &&
           (row.item == nullptr || !request.command->hasItems || request.arguments.empty() ||
            row.itemValue == std::get<std::int32_t>(request.arguments.front().front()));
}

} // namespace

Json documentOf(const NamedValue& value) {
    Json document;
    if (value.name != nullptr) {
        document["name"] = value.name;
    }
    if (isSingle(value)) {
        addValue(document, valueOf(value.values.front(), value.encoding), value.names);
        return document;
    }
    Json entries = Json::array();
    for (const wire::Value& each : value.values) {
        entries.add(valueOf(each, value.encoding));
    }
    addValue(document, entries, value.names);
    return document;
}

DecodedRequest decodeRequest(const Bytes& bytes, std::optional<std::size_t> commandAt) {
    wire::ByteReader data(bytes.data(), bytes.size());
    data.moveTo(commandAt.value_or(0));
    DecodedRequest decoded{commandAt ? wire::readRequestBehindToken(data) : wire::readRequest(data), std::nullopt};
    if (isMalformed(decoded.request)) {
        decoded.flaw = {offsetOf(decoded.request, data), decoded.request.refusal->text};
    }
    return decoded;
}

const wire::Operation& operationFor(const wire::Request& request) {
    static constexpr wire::ReplyField kWords[] = {{wire::Encoding::Ints, nullptr, nullptr, wire::kRestOfReply}};
    static constexpr wire::Operation kUnknown{
        {}, wire::Shape::Parcel, kWords, {wire::StateRule::Access::None, nullptr, {}, {}}};
    if (request.operation != nullptr) {
        return *request.operation;
    }
    return request.command != nullptr ? request.command->operation : kUnknown;
}

wire::ReplyReading decodeReply(const wire::Operation& operation, const Bytes& bytes) {
    wire::ByteReader data(bytes.data(), bytes.size());
    return wire::readReply(operation, data);
}

std::vector<NamedValue> argumentsOf(const wire::Request& request) {
    std::vector<NamedValue> values;
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        const wire::RequestItem& item = wire::itemsOf(request)[i];
        values.push_back({item.name, item.encoding, item.names, request.arguments[i]});
    }
    return values;
}

std::vector<NamedValue> fieldsOf(const wire::Operation& operation, const wire::Reply& reply) {
    std::vector<NamedValue> values;
    for (const wire::Values& each : reply.fields) {
        const wire::ReplyField& field = wire::fieldAt(operation, values.size());
        values.push_back({field.name, field.encoding, field.names, each});
    }
    return values;
}

std::vector<const wire::Function*> sendersOf(const wire::Request& request) {
    if (request.command == nullptr) {
        return {};
    }
    std::vector<const wire::Function*> senders;
    for (const wire::Function* const function : wire::functionsSending(request.command->value)) {
        const wire::Rows<wire::SentRequest>& sent = function->requests;
        if (std::any_of(sent.begin(), sent.end(),
                        [&request](const wire::SentRequest& row) { return isSameItem(row, request); })) {
            senders.push_back(function);
        }
    }
    return senders;
}

std::string lineOf(const NamedValue& value) {
    const std::string text = wire::describe(value.values, value.encoding, value.names);
    return value.name != nullptr ? value.name + (" = " + text) : text;
}

Json documentOf(const DecodedRequest& decoded) {
    const wire::Request& request = decoded.request;
    Json document;
    document["command"] = request.command != nullptr ? Json(request.command->name) : Json();
    document["number"] = request.number ? Json(*request.number) : Json();
    if (const std::string item = wire::itemNameOf(request); !item.empty()) {
        document["item"] = item;
    }
    document["arguments"] = documentOf(argumentsOf(request));
    addFlaw(document, decoded.flaw);
    return document;
}

Json documentOf(const wire::Operation& operation, const wire::ReplyReading& reading) {
    Json document;
    document["result"] = reading.hasResult ? Json(reading.reply.result) : Json();
    if (const std::string name = wire::nameOfResult(reading.reply.result); !name.empty()) {
        document["name"] = name;
    }
    document["fields"] = documentOf(fieldsOf(operation, reading.reply));
    addFlaw(document, reading.flaw);
    return document;
}

std::string textOf(const wire::Operation& operation, const wire::ReplyReading& reading) {
    std::string text = reading.hasResult ? wire::resultText(reading.reply.result) : "";
    const char* separator = ": ";
    for (const NamedValue& value : fieldsOf(operation, reading.reply)) {
        text += separator + (value.name != nullptr ? value.name + std::string("=") : "") +
                wire::describe(value.values, value.encoding, value.names);
        separator = ", ";
    }
    if (reading.flaw) {
        text += (text.empty() ? "" : " ") + ('[' + textOf(*reading.flaw) + ']');
    }
    return text;
}

std::string noReplyText(std::int32_t status) {
    return status == android::DEAD_OBJECT ? "no reply: the link is dead" : "no reply: status " + std::to_string(status);
}

std::string textOf(const wire::ReplyFlaw& flaw) { return flaw.text + " (at byte " + std::to_string(flaw.offset) + ')'; }

} // namespace kelutv::tool
