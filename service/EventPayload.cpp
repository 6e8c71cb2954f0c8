#include "service/EventPayload.h"

#include <limits>
#include <stdexcept>

namespace kelutv::service {

namespace {

[[noreturn]] void refuse(const wire::Event& event, const wire::EventField& field, const char* wanted) {
    throw std::invalid_argument(std::string(event.name) + ": " + field.name + " takes " + wanted);
}

template <typename Number> std::string bytesOf(const wire::Value& value, const char*& wanted) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    if (number == nullptr || *number < std::numeric_limits<Number>::min() ||
        *number > std::numeric_limits<Number>::max()) {
        wanted = "an integer within its size";
        return "";
    }
    const auto narrow = static_cast<Number>(*number);
    return {reinterpret_cast<const char*>(&narrow), sizeof(narrow)};
}

std::string textOf(const wire::Value& value, bool isTerminated, const char*& wanted) {
    const auto* const text = std::get_if<std::string>(&value);
    if (text == nullptr || (isTerminated && text->find('\0') != std::string::npos)) {
        wanted = isTerminated ? "a text without zeros in it" : "bytes";
        return "";
    }
    return isTerminated ? *text + '\0' : *text;
}

/** @param wanted is set when the value is not what the field takes */
std::string bytesOf(wire::FieldType type, const wire::Value& value, const char*& wanted) {
    switch (type) {
    case wire::FieldType::Int8:
        return bytesOf<std::int8_t>(value, wanted);
    case wire::FieldType::UInt8:
        return bytesOf<std::uint8_t>(value, wanted);
    case wire::FieldType::Int16:
        return bytesOf<std::int16_t>(value, wanted);
    case wire::FieldType::UInt16:
        return bytesOf<std::uint16_t>(value, wanted);
    case wire::FieldType::Int32:
        return bytesOf<std::int32_t>(value, wanted);
    case wire::FieldType::Text:
        return textOf(value, true, wanted);
    case wire::FieldType::Bytes:
        break;
    }
    return textOf(value, false, wanted);
}

} // namespace

std::string payloadOf(const wire::Event& event, const wire::Values& values) {
    if (values.size() != event.fields.size()) {
        throw std::invalid_argument(std::string(event.name) + " has " + std::to_string(event.fields.size()) +
                                    " fields, not " + std::to_string(values.size()));
    }
    std::string payload;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const char* wanted = nullptr;
        payload += bytesOf(event.fields[i].type, values[i], wanted);
        if (wanted != nullptr) {
            refuse(event, event.fields[i], wanted);
        }
    }
    return payload;
}

} // namespace kelutv::service
