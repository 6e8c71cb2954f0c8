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
    FieldReader(ByteReader& data, ReplyReading& reading) : mData(data), mReading(reading) {}

    void readAll(const Rows<ReplyField>& fields) {
        while (readRound(fields) && fields.size() > 1 && mData.available() != 0) {
        }
        if (!mReading.flaw && mData.available() != 0) {
            complain(std::to_string(mData.available()) + " bytes too many");
        }
    }

private:
    bool readRound(const Rows<ReplyField>& fields) {
        if (fields.size() > 1 && mData.available() == 0) {
            return false;
        }
        return std::all_of(fields.begin(), fields.end(), [this](const ReplyField& field) { return readField(field); });
    }

    bool readField(const ReplyField& field) {
        if (field.count == kRestOfReply && isText(field.encoding)) {
            return readTexts(field.encoding);
        }
        const std::size_t there = isText(field.encoding) ? 1 : mData.available() / sizeOf(field.encoding);
        const std::size_t wanted = field.count == kRestOfReply   ? there
                                   : field.count == kCountOfRest ? 1
                                                                 : static_cast<std::size_t>(field.count);
        std::optional<Values> values = readValues(mData, field.encoding, std::min(wanted, there));
        if (values && !values->empty()) {
            mReading.reply.fields.push_back(std::move(*values));
        }
        if (!values || there < wanted) {
            complain(field, there, wanted);
        }
        return !mReading.flaw;
    }

    bool readTexts(Encoding kind) {
        Values texts;
        while (const auto text = mData.available() != 0 ? readValues(mData, kind, 1) : std::nullopt) {
            texts.push_back(text->front());
        }
        mReading.reply.fields.push_back(std::move(texts));
        if (mData.available() != 0) {
            complain("a text has no end");
        }
        return !mReading.flaw;
    }

    void complain(const ReplyField& field, std::size_t there, std::size_t wanted) {
        const std::string name = field.name != nullptr ? field.name : "the answer";
        if (isText(field.encoding)) {
            complain(mData.available() == 0 ? name + " lacks its text" : "a text has no end");
        } else {
            complain(name + " has " + std::to_string(there) + " of " + std::to_string(wanted) + " numbers");
        }
    }

    void complain(const std::string& text) { mReading.flaw = {mData.position(), text}; }

    ByteReader& mData;
    ReplyReading& mReading;
};

} // namespace

ReplyReading readReply(const Operation& operation, ByteReader& data) {
    ReplyReading reading;
    if (!data.read(reading.reply.result)) {
        reading.flaw = {data.position(), "the result word is missing"};
        return reading;
    }
    reading.hasResult = true;
    const bool isPlain = reading.reply.result != 0 || operation.shape == Shape::Status;
    FieldReader(data, reading).readAll(isPlain ? Rows<ReplyField>() : operation.reply);
    return reading;
}

} // namespace kelutv::wire
