#include "tools/kelutv/events/EventText.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/text/Hex.h"
#include "wire/text/Describe.h"

#include <cstdio>
#include <cstring>
#include <ctime>

namespace kelutv::tool {

namespace {

/** The payload as int words; empty when it is no row of them. */
std::vector<std::int32_t> int32sOf(const Bytes& payload) {
    if (payload.empty() || payload.size() % sizeof(std::int32_t) != 0) {
        return {};
    }
    std::vector<std::int32_t> words(payload.size() / sizeof(std::int32_t));
    std::memcpy(words.data(), payload.data(), payload.size());
    return words;
}

std::string clockText(std::chrono::system_clock::time_point time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count() % 1000;
    std::tm local{};
    ::localtime_r(&seconds, &local);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof(text), "%H:%M:%S", &local);
    std::snprintf(text + length, sizeof(text) - length, ".%03d", static_cast<int>(milliseconds));
    return text;
}

std::string idText(std::uint32_t id) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%X", id);
    return text;
}

std::string fieldsText(const KnownEvent& event) {
    std::string text;
    for (const wire::PayloadValue& field : event.fields) {
        text += (text.empty() ? "" : ", ") + (field.name != nullptr ? field.name + std::string("=") : "") +
                wire::describe({field.value}, field.encoding, field.names);
    }
    return text;
}

std::string lineOf(const KnownEvent& event, const Output& output) {
    const Bytes& payload = event.received.payload;
    const std::string fields = fieldsText(event);
    return output.styled(Style::Dim, clockText(event.received.time)) + ' ' +
           output.styled(Style::Number, idText(event.received.id)) + ' ' + event.module +
           (event.known != nullptr ? ' ' + output.styled(Style::Name, event.known->name) : "") + " (" +
           std::to_string(payload.size()) + " bytes" + (payload.empty() ? "" : ": " + spacedHexOf(payload)) + ')' +
           (fields.empty() ? "" : ": " + output.styled(Style::Value, fields));
}

void addMeaning(Json& document, const KnownEvent& event) {
    if (event.known == nullptr) {
        document["words"] = int32sOf(event.received.payload);
        return;
    }
    document["fields"] = Json::array();
    for (const wire::PayloadValue& field : event.fields) {
        document["fields"].add(documentOf(NamedValue{field.name, field.encoding, field.names, {field.value}}));
    }
}

void addNames(Json& document, const KnownEvent& event) {
    document["name"] = event.known != nullptr ? Json(event.known->name) : Json();
    document["module"] = !event.module.empty() ? Json(event.module) : Json();
}

Json documentOf(const KnownEvent& event) {
    Json document;
    document["time"] = documentTime(event.received.time);
    document["event"] = event.received.id;
    addNames(document, event);
    document["length"] = event.received.payload.size();
    document["payload"] = hexOf(event.received.payload);
    addMeaning(document, event);
    return document;
}

} // namespace

KnownEvent::KnownEvent(const ReceivedEvent& what, const wire::EventTable& events)
    : received(what), known(events.find(what.id)), module(moduleName(wire::moduleOf(what.id))),
      fields(wire::readPayload(known, what.payload)) {}

void print(const KnownEvent& event, const Output& output) {
    output.line(lineOf(event, output));
    output.document(documentOf(event));
}

std::string meaningText(const KnownEvent& event) {
    const std::string fields = fieldsText(event);
    return idText(event.received.id) + (event.known != nullptr ? std::string(" ") + event.known->name : "") + " (" +
           std::to_string(event.received.payload.size()) + " bytes)" + (fields.empty() ? "" : ": " + fields);
}

Json meaningDocument(const KnownEvent& event) {
    Json document;
    addNames(document, event);
    addMeaning(document, event);
    return document;
}

double documentTime(std::chrono::system_clock::time_point time) {
    return std::chrono::duration<double>(time.time_since_epoch()).count();
}

} // namespace kelutv::tool
