#include "wire/events/Payload.h"

#include <cstring>
#include <utility>

namespace kelutv::wire {

namespace {

class PayloadReader {
public:
    explicit PayloadReader(const std::vector<std::uint8_t>& bytes) : mNext(bytes.data()), mLeft(bytes.size()) {}

    std::size_t left() const { return mLeft; }

    template <typename Number> bool read(Value& value) {
        Number number{};
        if (mLeft < sizeof(number)) {
            return false;
        }
        std::memcpy(&number, mNext, sizeof(number));
        take(sizeof(number));
        value = std::int32_t{number};
        return true;
    }

    bool readRest(Value& value) {
        value = std::string(reinterpret_cast<const char*>(mNext), mLeft);
        take(mLeft);
        return true;
    }

    bool readText(Value& value) {
        const void* const end = mLeft == 0 ? nullptr : std::memchr(mNext, 0, mLeft);
        if (end == nullptr) {
            return false;
        }
        const auto length = static_cast<std::size_t>(static_cast<const std::uint8_t*>(end) - mNext);
        value = std::string(reinterpret_cast<const char*>(mNext), length);
        take(length + 1);
        return true;
    }

private:
    void take(std::size_t count) {
        mNext += count;
        mLeft -= count;
    }

    const std::uint8_t* mNext;
    std::size_t mLeft;
};

/** False when the payload ends before. */
bool readField(PayloadReader& reader, FieldType type, Value& value) {
    switch (type) {
    case FieldType::Int8:
        return reader.read<std::int8_t>(value);
    case FieldType::UInt8:
        return reader.read<std::uint8_t>(value);
    case FieldType::Int16:
        return reader.read<std::int16_t>(value);
    case FieldType::UInt16:
        return reader.read<std::uint16_t>(value);
    case FieldType::Int32:
        return reader.read<std::int32_t>(value);
    case FieldType::Text:
        return reader.readText(value);
    case FieldType::Bytes:
        break;
    }
    return reader.readRest(value);
}

Encoding encodingOf(FieldType type) {
    if (type == FieldType::Text) {
        return Encoding::CString;
    }
    return type == FieldType::Bytes ? Encoding::Bytes : Encoding::Int32;
}

/** Appends it with its place, when it is there. */
bool append(PayloadReader& reader, FieldType type, PayloadValue value, std::vector<PayloadValue>& values) {
    const std::size_t left = reader.left();
    if (!readField(reader, type, value.value)) {
        return false;
    }
    value.offset = values.empty() ? 0 : values.back().offset + values.back().size;
    value.size = left - reader.left();
    values.push_back(std::move(value));
    return true;
}

void readFields(PayloadReader& reader, const Event& event, std::vector<PayloadValue>& values) {
    for (const EventField& field : event.fields) {
        if (!append(reader, field.type, {field.name, encodingOf(field.type), field.names, {}}, values)) {
            return;
        }
    }
}

} // namespace

std::vector<PayloadValue> readPayload(const Event* event, const std::vector<std::uint8_t>& bytes) {
    PayloadReader reader(bytes);
    std::vector<PayloadValue> values;
    if (event != nullptr) {
        readFields(reader, *event, values);
    }
    if (reader.left() % sizeof(std::int32_t) == 0) {
        while (append(reader, FieldType::Int32, {nullptr, Encoding::Int32, nullptr, {}}, values)) {
        }
    }
    return values;
}

std::string payloadOf(const Values& values) {
    std::string payload;
    for (const Value& value : values) {
        if (const auto* const number = std::get_if<std::int32_t>(&value)) {
            payload.append(reinterpret_cast<const char*>(number), sizeof(*number));
        } else if (const auto* const text = std::get_if<std::string>(&value)) {
            payload += *text + '\0';
        }
    }
    return payload;
}

} // namespace kelutv::wire
