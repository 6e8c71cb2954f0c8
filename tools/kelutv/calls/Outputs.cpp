#include "tools/kelutv/calls/Outputs.h"

#include "tools/kelutv/calls/Arguments.h"
#include "tools/kelutv/calls/Scalars.h"
#include "tools/kelutv/text/Hex.h"

#include <algorithm>
#include <cstring>

namespace kelutv::tool {

namespace {

/** Buffers of items are this long, whatever the item; zeros at the end mean nothing. */
constexpr const char* kItemLength = "255";

std::string textAt(const std::uint8_t* from, std::size_t room) {
    return {from, std::find(from, from + room, std::uint8_t{0})};
}

Json fieldOf(const wire::Field& field, const std::uint8_t* record) {
    const std::uint8_t* const from = record + field.offset;
    if (field.scalar == wire::ScalarType::Char) {
        return textAt(from, field.count);
    }
    return isUntouched(from, sizeOf(field.scalar)) ? Json() : readScalar(field.scalar, from);
}

Json recordAt(const wire::Record& record, const std::uint8_t* from) {
    if (isUntouched(from, record.size)) {
        return nullptr;
    }
    Json fields = Json::object();
    for (const wire::Field& field : record.fields) {
        fields[field.name] = fieldOf(field, from);
    }
    return fields;
}

bool isZero(const std::uint8_t* from, std::size_t size) {
    return std::all_of(from, from + size, [](std::uint8_t byte) { return byte == 0; });
}

/** Records without a number of their own, up to the first that holds nothing. */
Json recordsAt(const wire::Record& record, const std::vector<std::uint8_t>& bytes) {
    Json records = Json::array();
    for (std::size_t at = 0; at + record.size <= bytes.size() && !isZero(&bytes[at], record.size); at += record.size) {
        records.add(recordAt(record, &bytes[at]));
    }
    return records.entries().empty() ? Json() : records;
}

/** The entries that were written, as many as the length says at most. */
std::size_t writtenEntries(const wire::Function& function, const wire::Parameter& parameter, const CallFrame& frame,
                           const CallFrame::Storage& storage) {
    const std::size_t size = sizeOf(parameter.values.scalar);
    const auto length = lengthOf(function, parameter, frame);
    const std::size_t room = storage.bytes.size() / size;
    const std::size_t most =
        length ? std::min(room, static_cast<std::size_t>(std::max<std::int64_t>(*length, 0))) : room;
    std::size_t count = 0;
    while (count < most && !isUntouched(&storage.bytes[count * size], size)) {
        ++count;
    }
    if (std::strcmp(parameter.length, kItemLength) == 0) {
        while (count > 1 && isZero(&storage.bytes[(count - 1) * size], size)) {
            --count;
        }
    }
    return count;
}

Json arrayOf(const wire::Function& function, const wire::Parameter& parameter, const CallFrame& frame,
             const CallFrame::Storage& storage) {
    if (parameter.values.record != nullptr) {
        return recordsAt(*parameter.values.record, storage.bytes);
    }
    const std::size_t size = sizeOf(parameter.values.scalar);
    if (parameter.values.scalar == wire::ScalarType::Byte) {
        const auto length = lengthOf(function, parameter, frame).value_or(0);
        const auto count = std::min(storage.bytes.size(), static_cast<std::size_t>(std::max<std::int64_t>(length, 0)));
        return hexOf({storage.bytes.begin(), storage.bytes.begin() + static_cast<std::ptrdiff_t>(count)});
    }
    if (isUntouched(storage.bytes.data(), size)) {
        return nullptr;
    }
    Json entries = Json::array();
    const std::size_t count = writtenEntries(function, parameter, frame, storage);
    for (std::size_t i = 0; i < count; ++i) {
        entries.add(readScalar(parameter.values.scalar, &storage.bytes[i * size]));
    }
    return entries;
}

Json devicesOf(const CallFrame& frame) {
    Json devices = Json::array();
    for (const KELU_TV_CEC_DEVICE_INFO_SORTED_S& device : frame.foundDevices()) {
        devices.add({{"logAddr", device.logAddr},
                     {"hdmiDevPort", device.hdmiDevPort},
                     {"phyAddr", device.phyAddr},
                     {"deVName", device.deVName},
                     {"hdmiListText", device.hdmiListText}});
    }
    return devices;
}

Json textOfStorage(const CallFrame::Storage& storage) {
    const bool isUnwritten = storage.bytes[0] == kUntouched && storage.bytes[1] == 0;
    return isUnwritten ? Json() : Json(textAt(storage.bytes.data(), storage.bytes.size()));
}

Json outputOf(const wire::Function& function, const wire::Parameter& parameter, const CallFrame& frame,
              const CallFrame::Storage& storage) {
    if (storage.isNull) {
        return nullptr;
    }
    switch (parameter.values.kind) {
    case wire::ValueKind::Text:
        return textOfStorage(storage);
    case wire::ValueKind::Array:
        return arrayOf(function, parameter, frame, storage);
    case wire::ValueKind::Record:
        return recordAt(*parameter.values.record, storage.bytes.data());
    case wire::ValueKind::List:
        return devicesOf(frame);
    default:
        break;
    }
    const bool isUnwritten = isUntouched(storage.bytes.data(), sizeOf(parameter.values.scalar));
    return isUnwritten ? Json() : readScalar(parameter.values.scalar, storage.bytes.data());
}

} // namespace

Json resultOf(const wire::Function& function, const CallFrame& frame) {
    switch (function.result.kind) {
    case wire::ValueKind::Nothing:
        return nullptr;
    case wire::ValueKind::List:
        return frame.resultTexts();
    case wire::ValueKind::Record:
        return recordAt(*function.result.record, frame.result().bytes.data());
    default:
        break;
    }
    return readScalar(function.result.scalar, frame.result().bytes.data());
}

Json outputsOf(const wire::Function& function, const CallFrame& frame) {
    Json outputs = Json::object();
    for (std::size_t i = 0; i < function.parameters.size(); ++i) {
        const wire::Parameter& parameter = function.parameters[i];
        if (parameter.direction == wire::Direction::Out || parameter.direction == wire::Direction::InOut) {
            outputs[parameter.name] = outputOf(function, parameter, frame, frame.storage(i));
        }
    }
    return outputs;
}

} // namespace kelutv::tool
