#include "fuzz/support/Frames.h"

#include "tools/kelutv/calls/Arguments.h"
#include "tools/kelutv/calls/Callbacks.h"
#include "tools/kelutv/calls/Scalars.h"

#include <algorithm>
#include <cstring>

namespace kelutv::fuzz {
namespace {

using tool::CallFrame;
using wire::Direction;
using wire::ValueKind;

constexpr std::int64_t kMostEntries = 1 << 16;
/** Where the header does not say how much a call may write: more than any reply of an input can bring. */
constexpr std::size_t kRoom = std::size_t{1} << 18;

bool isGiven(const wire::Parameter& parameter) { return parameter.direction != Direction::Out; }

Bytes exactly(std::size_t size, Input& input) {
    Bytes bytes = input.take(size);
    bytes.resize(size);
    bytes.shrink_to_fit();
    return bytes;
}

/** Flags are 0 or 1, texts have an end: nothing else is a value of the type. */
void tame(const wire::Field& field, Bytes& record) {
    std::uint8_t* const start = record.data() + field.offset;
    const std::size_t count = std::max<std::size_t>(field.count, 1);
    if (field.scalar == wire::ScalarType::Bool) {
        std::for_each(start, start + count, [](std::uint8_t& flag) { flag &= 1; });
    } else if (field.scalar == wire::ScalarType::Char) {
        start[count - 1] = 0;
    }
}

Bytes readRecord(const wire::Record& record, Input& input) {
    Bytes bytes = exactly(record.size, input);
    for (const wire::Field& field : record.fields) {
        tame(field, bytes);
    }
    return bytes;
}

/** Small numbers more often than others, since indexes and lengths are small. */
Bytes readScalar(wire::ScalarType scalar, Input& input) {
    const std::size_t size = tool::sizeOf(scalar);
    Bytes bytes = input.flag() ? exactly(size, input) : exactly(1, input);
    bytes.resize(size);
    if (scalar == wire::ScalarType::Bool) {
        bytes[0] &= 1;
    }
    return bytes;
}

Bytes readText(Input& input) {
    Bytes bytes = input.take(input.number<std::uint8_t>());
    bytes.push_back(0);
    bytes.shrink_to_fit();
    return bytes;
}

class FrameReader {
public:
    FrameReader(const wire::Function& function, Input& input)
        : mFunction(function), mInput(input), mFrame(function.parameters.size()) {}

    std::optional<CallFrame> read() {
        // Arrays come last: the other arguments tell how long they are.
        for (std::size_t i = 0; i < mFunction.parameters.size(); ++i) {
            if (isGiven(parameter(i)) && parameter(i).values.kind != ValueKind::Array) {
                readGiven(i);
            }
        }
        for (std::size_t i = 0; i < mFunction.parameters.size(); ++i) {
            if (parameter(i).values.kind == ValueKind::Array ? !readArray(i) : !isGiven(parameter(i))) {
                if (parameter(i).values.kind == ValueKind::Array) {
                    return std::nullopt;
                }
                makeRoom(i);
            }
        }
        return std::move(mFrame);
    }

private:
    const wire::Parameter& parameter(std::size_t index) const { return mFunction.parameters[index]; }

    void readGiven(std::size_t index) {
        const wire::Parameter& given = parameter(index);
        CallFrame::Storage& storage = mFrame.storage(index);
        storage.isNull = given.allowsNull && mInput.below(8) == 7;
        if (given.values.kind == ValueKind::Callback) {
            storage.bytes.resize(sizeof(void*));
            tool::storePrinter(given.type, storage.bytes.data());
        } else {
            storage.bytes = readValue(given.values);
        }
    }

    Bytes readValue(const wire::ValueType& type) {
        switch (type.kind) {
        case ValueKind::Text:
            return readText(mInput);
        case ValueKind::Record:
            return readRecord(*type.record, mInput);
        default:
            return readScalar(type.scalar, mInput);
        }
    }

    /** False when it would be too long. */
    bool readArray(std::size_t index) {
        const wire::Parameter& array = parameter(index);
        CallFrame::Storage& storage = mFrame.storage(index);
        const auto entries = tool::lengthOf(mFunction, array, mFrame);
        if (entries.value_or(0) > kMostEntries) {
            return false;
        }
        const std::size_t unit =
            array.values.record != nullptr ? array.values.record->size : tool::sizeOf(array.values.scalar);
        const std::size_t known = static_cast<std::size_t>(std::max<std::int64_t>(entries.value_or(0), 0)) * unit;
        if (array.isLedByLength) {
            storage.bytes = readLedByLength();
        } else if (entries) {
            storage.bytes = exactly(known, mInput);
        } else {
            storage.bytes.assign(kRoom, 0);
        }
        storage.count = static_cast<std::size_t>(std::max<std::int64_t>(entries.value_or(0), 0));
        storage.isNull = array.allowsNull && mInput.below(8) == 7;
        return true;
    }

    Bytes readLedByLength() {
        const Bytes content = mInput.take(mInput.number<std::uint8_t>());
        const auto length = static_cast<std::uint32_t>(content.size());
        Bytes block(sizeof length + content.size());
        std::memcpy(block.data(), &length, sizeof length);
        std::copy(content.begin(), content.end(), block.begin() + sizeof length);
        return block;
    }

    void makeRoom(std::size_t index) {
        const wire::ValueType& type = parameter(index).values;
        std::size_t size = kRoom;
        if (type.kind == ValueKind::Record) {
            size = type.record->size;
        } else if (type.kind == ValueKind::Single) {
            size = tool::sizeOf(type.scalar);
        }
        if (type.kind != ValueKind::List) {
            mFrame.storage(index).bytes = Bytes(size);
        }
    }

    const wire::Function& mFunction;
    Input& mInput;
    CallFrame mFrame;
};

} // namespace

std::optional<CallFrame> readFrame(const wire::Function& function, Input& input) {
    return FrameReader(function, input).read();
}

} // namespace kelutv::fuzz
