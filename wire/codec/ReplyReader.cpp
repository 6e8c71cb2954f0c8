#include "wire/codec/ReplyReader.h"

#include "wire/codec/ValueReader.h"

#include <algorithm>

namespace kelutv::wire {

namespace {

std::size_t sizeOf(Encoding kind) {
    return kind == Encoding::Double || kind == Encoding::Doubles ? sizeof(double) : sizeof(std::int32_t);
}

bool isText(Encoding kind) { return kind == Encoding::CString || kind == Encoding::String16; }

class FieldReader {
public:
    FieldReader(const Operation& operation, ByteReader& data, const Arguments* arguments, ReplyReading& reading)
        : mOperation(operation), mData(data), mArguments(arguments), mReading(reading) {}

    void readAll() {
        const bool isEmptyList = mOperation.isList && mData.available() == 0;
        while (!isEmptyList && readRound() && mOperation.isList && mData.available() != 0) {
        }
    }

    void requireEnd() {
        if (!mReading.flaw && mData.available() != 0) {
            complain(std::to_string(mData.available()) + " bytes too many", ReplyFlaw::Kind::TooMuch);
        }
    }

private:
    bool readRound() {
        mCounted.reset();
        return std::all_of(mOperation.reply.begin(), mOperation.reply.end(),
                           [this](const ReplyField& field) { return readField(field); });
    }

    bool readField(const ReplyField& field) {
        if (field.count == kRestOfReply && isText(field.encoding)) {
            return readTexts(field.encoding);
        }
        const std::size_t there = isText(field.encoding) ? 1 : mData.available() / sizeOf(field.encoding);
        const std::size_t wanted = wantedOf(field, there);
        std::optional<Values> values = readValues(mData, field.encoding, std::min(wanted, there));
        if (values && field.count == kCountOfRest && !values->empty()) {
            mCounted = std::max(std::get<std::int32_t>(values->front()), 0);
        }
        if (values && !values->empty()) {
            mReading.reply.fields.push_back(std::move(*values));
        }
        if (!values || there < wanted) {
            complain(field, there, wanted);
        }
        return !mReading.flaw;
    }

    std::size_t wantedOf(const ReplyField& field, std::size_t there) const {
        if (field.count != kRestOfReply) {
            return field.count == kCountOfRest ? 1 : static_cast<std::size_t>(field.count);
        }
        if (mCounted) {
            return static_cast<std::size_t>(*mCounted);
        }
        return mArguments != nullptr ? lengthOf(field, *mArguments).value_or(there) : there;
    }

    bool readTexts(Encoding kind) {
        Values texts;
        while (const auto text = mData.available() != 0 ? readValues(mData, kind, 1) : std::nullopt) {
            texts.push_back(text->front());
        }
        mReading.reply.fields.push_back(std::move(texts));
        if (mData.available() != 0) {
            complainOfText();
        }
        return !mReading.flaw;
    }

    void complain(const ReplyField& field, std::size_t there, std::size_t wanted) {
        const std::string name = field.name != nullptr ? field.name : "the answer";
        if (isText(field.encoding) && mData.available() != 0) {
            complainOfText();
        } else if (isText(field.encoding)) {
            complain(name + " lacks its text");
        } else {
            complain(name + " has " + std::to_string(there) + " of " + std::to_string(wanted) + " numbers");
        }
    }

    void complainOfText() { complain("a text has no end", ReplyFlaw::Kind::Unterminated); }

    void complain(const std::string& text, ReplyFlaw::Kind kind = ReplyFlaw::Kind::Missing) {
        mReading.flaw = {mData.position(), text, kind};
    }

    const Operation& mOperation;
    ByteReader& mData;
    const Arguments* mArguments;
    ReplyReading& mReading;
    /** What a field said of how many values follow. */
    std::optional<std::int32_t> mCounted;
};

} // namespace

ReplyReading readReply(const Operation& operation, ByteReader& data, const Arguments* arguments) {
    ReplyReading reading;
    if (!data.read(reading.reply.result)) {
        reading.flaw = {data.position(), "the result word is missing"};
        return reading;
    }
    reading.hasResult = true;
    FieldReader reader(operation, data, arguments, reading);
    if (reading.reply.result == 0 && operation.shape != Shape::Status) {
        reader.readAll();
    }
    reader.requireEnd();
    return reading;
}

} // namespace kelutv::wire
