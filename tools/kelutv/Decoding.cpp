#include "Decoding.h"

#include "Words.h"

#include "simulator/Describe.h"
#include "simulator/Names.h"

#include <nlohmann/json.hpp>

#include <binder/Parcel.h>

#include <algorithm>

namespace kelutv::tool {

namespace {

using WireKind = simulator::Kind;
using simulator::Result;

/** The reader stands where the argument begins that could not be read. */
std::size_t offsetOf(const simulator::Request& request, const android::Parcel& parcel) {
    switch (request.fault->result) {
    case Result::WrongToken:
        return 0;
    case Result::UnknownCommand:
        return request.argumentsAt - sizeof(std::int32_t);
    default:
        return parcel.dataPosition();
    }
}

/** An item without a row can be read all the same. */
bool isMalformed(const simulator::Request& request) {
    return request.fault && request.fault->result != Result::UnknownItem;
}

Json valueOf(const simulator::Scalar& scalar, WireKind kind) {
    if (const auto* const number = std::get_if<std::int32_t>(&scalar)) {
        return *number;
    }
    if (const auto* const real = std::get_if<double>(&scalar)) {
        return *real;
    }
    const auto& text = std::get<std::string>(scalar);
    return kind == WireKind::Bytes ? Json(hexOf({text.begin(), text.end()})) : Json(text);
}

bool isSingle(const NamedValue& value) {
    return value.scalars.size() == 1 && value.kind != WireKind::Ints && value.kind != WireKind::Doubles;
}

Json documentOf(const NamedValue& value) {
    Json document;
    if (value.name != nullptr) {
        document["name"] = value.name;
    }
    if (!isSingle(value)) {
        document["value"] = Json::array();
        for (const simulator::Scalar& scalar : value.scalars) {
            document["value"].push_back(valueOf(scalar, value.kind));
        }
        return document;
    }
    document["value"] = valueOf(value.scalars.front(), value.kind);
    const auto* const number = std::get_if<std::int32_t>(&value.scalars.front());
    const std::string name = number != nullptr ? simulator::nameOfValue(*number, value.names) : "";
    if (!name.empty()) {
        document["enumerator"] = name;
    }
    return document;
}

Json documentOf(const std::vector<NamedValue>& values) {
    Json documents = Json::array();
    for (const NamedValue& value : values) {
        documents.push_back(documentOf(value));
    }
    return documents;
}

void addFlaw(Json& document, const std::optional<simulator::ReplyFlaw>& flaw) {
    if (flaw) {
        document["fault"] = {{"offset", flaw->offset}, {"text", flaw->text}};
    }
}

/** A function that takes any item has none of its own. */
bool isSameItem(const Request& row, const simulator::Request& request) {
    return row.commandValue == request.command->value &&
           (row.item == nullptr || !request.command->hasItems || request.arguments.empty() ||
            row.itemValue == std::get<std::int32_t>(request.arguments.front().front()));
}

} // namespace

DecodedRequest decodeRequest(const Bytes& bytes) {
    android::Parcel parcel;
    parcel.setData(bytes.data(), bytes.size());
    DecodedRequest decoded{simulator::readRequest(parcel), std::nullopt};
    if (isMalformed(decoded.request)) {
        decoded.flaw = {offsetOf(decoded.request, parcel), decoded.request.fault->text};
    }
    return decoded;
}

const simulator::Operation& operationFor(const simulator::Request& request) {
    static constexpr simulator::ReplyField kWords[] = {{WireKind::Ints, nullptr, nullptr, simulator::kRestOfReply}};
    static constexpr simulator::Operation kUnknown{
        {}, simulator::Shape::Parcel, kWords, {simulator::Rule::Kind::None, nullptr, {}, {}}};
    if (request.operation != nullptr) {
        return *request.operation;
    }
    return request.command != nullptr ? request.command->operation : kUnknown;
}

simulator::ReplyReading decodeReply(const simulator::Operation& operation, const Bytes& bytes) {
    android::Parcel parcel;
    parcel.setData(bytes.data(), bytes.size());
    return simulator::readReply(operation, parcel);
}

std::vector<NamedValue> argumentsOf(const simulator::Request& request) {
    std::vector<NamedValue> values;
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        const simulator::RequestItem& item = simulator::itemsOf(request)[i];
        values.push_back({item.name, item.kind, item.names, request.arguments[i]});
    }
    return values;
}

std::vector<NamedValue> fieldsOf(const simulator::Operation& operation, const simulator::Reply& reply) {
    std::vector<NamedValue> values;
    for (const simulator::Scalars& scalars : reply.fields) {
        const simulator::ReplyField& field = simulator::fieldAt(operation, values.size());
        values.push_back({field.name, field.kind, field.names, scalars});
    }
    return values;
}

std::string itemNameOf(const simulator::Request& request) {
    if (request.command == nullptr || !request.command->hasItems || request.arguments.empty()) {
        return "";
    }
    const auto number = std::get<std::int32_t>(request.arguments.front().front());
    return simulator::nameOfValue(number, simulator::itemsOf(request)[0].names);
}

std::vector<const Function*> sendersOf(const simulator::Request& request) {
    if (request.command == nullptr) {
        return {};
    }
    std::vector<const Function*> senders;
    for (const Function* const function : functionsSending(request.command->value)) {
        const Rows<Request>& sent = function->requests;
        if (std::any_of(sent.begin(), sent.end(),
                        [&request](const Request& row) { return isSameItem(row, request); })) {
            senders.push_back(function);
        }
    }
    return senders;
}

std::string lineOf(const NamedValue& value) {
    const std::string text = simulator::describe(value.scalars, value.kind, value.names);
    return value.name != nullptr ? value.name + (" = " + text) : text;
}

Json documentOf(const DecodedRequest& decoded) {
    const simulator::Request& request = decoded.request;
    Json document;
    document["command"] = request.command != nullptr ? Json(request.command->name) : Json();
    document["number"] = request.number ? Json(*request.number) : Json();
    if (const std::string item = itemNameOf(request); !item.empty()) {
        document["item"] = item;
    }
    document["arguments"] = documentOf(argumentsOf(request));
    addFlaw(document, decoded.flaw);
    return document;
}

Json documentOf(const simulator::Operation& operation, const simulator::ReplyReading& reading) {
    Json document;
    document["result"] = reading.hasResult ? Json(reading.reply.result) : Json();
    document["fields"] = documentOf(fieldsOf(operation, reading.reply));
    addFlaw(document, reading.flaw);
    return document;
}

std::string textOf(const simulator::Operation& operation, const simulator::ReplyReading& reading) {
    std::string text = reading.hasResult ? std::to_string(reading.reply.result) : "";
    const char* separator = ": ";
    for (const NamedValue& value : fieldsOf(operation, reading.reply)) {
        text += separator + (value.name != nullptr ? value.name + std::string("=") : "") +
                simulator::describe(value.scalars, value.kind, value.names);
        separator = ", ";
    }
    if (reading.flaw) {
        text += (text.empty() ? "" : " ") + ('[' + textOf(*reading.flaw) + ']');
    }
    return text;
}

std::string textOf(const simulator::ReplyFlaw& flaw) {
    return flaw.text + " (at byte " + std::to_string(flaw.offset) + ')';
}

} // namespace kelutv::tool
