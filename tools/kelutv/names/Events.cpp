#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/names/Entry.h"
#include "tools/kelutv/names/EntryText.h"
#include "tools/kelutv/text/Lists.h"

#include <cstdio>

namespace kelutv::tool {

namespace {

const char* wordFor(wire::FieldType type) {
    switch (type) {
    case wire::FieldType::Int8:
        return "int8";
    case wire::FieldType::UInt8:
        return "uint8";
    case wire::FieldType::Int16:
        return "int16";
    case wire::FieldType::UInt16:
        return "uint16";
    case wire::FieldType::Text:
        return "text";
    case wire::FieldType::Bytes:
        return "bytes";
    case wire::FieldType::Int32:
        break;
    }
    return "int32";
}

std::string hexadecimal(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", number);
    return text;
}

class EventEntry : public Entry {
public:
    explicit EventEntry(const wire::Event& event) : Entry(event.name), mEvent(event) {}

    const char* kind() const override { return "event"; }

    std::string brief() const override {
        const std::string last = mEvent.last == mEvent.first ? "" : " to " + hexadecimal(mEvent.last);
        return hexadecimal(mEvent.first) + last + " of " + moduleName(wire::moduleOf(mEvent.first)) + ": " +
               mEvent.when;
    }

    std::vector<std::string> lines() const override {
        std::vector<std::string> fields;
        for (const wire::EventField& field : mEvent.fields) {
            fields.push_back(fieldText(wordFor(field.type), field.name, field.names));
        }
        return {"Payload: " + (fields.empty() ? "empty" : joined(fields, ", "))};
    }

    void addTo(Json& document) const override {
        document["first"] = mEvent.first;
        document["last"] = mEvent.last;
        document["module"] = moduleName(wire::moduleOf(mEvent.first));
        document["when"] = mEvent.when;
        document["fields"] = Json::array();
        for (const wire::EventField& field : mEvent.fields) {
            document["fields"].add(fieldDocument(wordFor(field.type), field.name, field.names));
        }
    }

private:
    const wire::Event& mEvent;
};

} // namespace

void addEvents(Entries& entries, const wire::EventTable& events) {
    for (const wire::Event& event : events.rows()) {
        entries.push_back(std::make_unique<EventEntry>(event));
    }
}

} // namespace kelutv::tool
