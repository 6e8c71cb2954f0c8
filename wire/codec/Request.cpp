#include "wire/codec/Request.h"

#include "wire/codec/Token.h"
#include "wire/codec/ValueReader.h"

#include <utility>

namespace kelutv::wire {

namespace {

/** Reads the items of one request, in order, until one is not there. */
class ArgumentReader {
public:
    ArgumentReader(ByteReader& data, Request& request) : mData(data), mRequest(request) {}

    void read(const Rows<RequestItem>& items) {
        for (const RequestItem& item : items) {
            Values values = readItem(item);
            if (mRequest.refusal) {
                return;
            }
            mRequest.arguments.push_back(std::move(values));
        }
        if (mData.available() != 0) {
            mRequest.refusal = {Result::TooMuchData, std::to_string(mData.available()) + " bytes too many"};
        }
    }

private:
    Values readItem(const RequestItem& item) {
        std::optional<Values> values = readValues(mData, item.encoding, countOf(item));
        if (!values) {
            mRequest.refusal = refusalAt(item);
            return {};
        }
        return std::move(*values);
    }

    std::size_t countOf(const RequestItem& item) const {
        switch (item.encoding) {
        case Encoding::Bytes:
            return blockLength(item, 1);
        case Encoding::Ints:
            return blockLength(item, sizeof(std::int32_t));
        case Encoding::Doubles:
            return blockLength(item, sizeof(double));
        case Encoding::Int32:
        case Encoding::Double:
        case Encoding::CString:
        case Encoding::String16:
            break;
        }
        return 1;
    }

    /** The number of elements; a negative one on the wire stands for none. */
    std::size_t blockLength(const RequestItem& item, std::size_t elementSize) const {
        if (item.lengthItem == kRestOfRequest) {
            return mData.available() / elementSize;
        }
        const Values& length = mRequest.arguments[static_cast<std::size_t>(item.lengthItem)];
        const std::int32_t count = std::get<std::int32_t>(length.front());
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }

    Refusal refusalAt(const RequestItem& item) const {
        if (item.encoding == Encoding::CString && mData.available() != 0) {
            return {Result::UnterminatedText, std::string("text ") + item.name + " has no end"};
        }
        return {Result::MissingData, std::string(item.name) + " is missing"};
    }

    ByteReader& mData;
    Request& mRequest;
};

void readCommand(ByteReader& data, Request& request) {
    std::int32_t number = 0;
    if (!data.read(number)) {
        request.refusal = {Result::MissingData, "the command identifier is missing"};
        return;
    }
    request.number = number;
    request.argumentsAt = data.position();
    request.command = findCommand(number);
    if (request.command == nullptr) {
        request.refusal = {Result::UnknownCommand, "unknown command"};
    }
}

} // namespace

Request requestWithWrongToken(const ByteReader& data) {
    Request request;
    request.size = data.size();
    request.refusal = {Result::WrongToken, "the interface token is not android.ITVBaseService"};
    return request;
}

Request readRequest(ByteReader& data) {
    return readToken(data) ? readRequestBehindToken(data) : requestWithWrongToken(data);
}

Request readRequestBehindToken(ByteReader& data) {
    Request request;
    request.size = data.size();
    readCommand(data, request);
    if (!request.refusal) {
        ArgumentReader(data, request).read(request.command->operation.request);
    }
    if (!request.refusal) {
        request.operation = operationOf(*request.command, request.arguments);
        if (request.operation == nullptr) {
            request.refusal = {Result::UnknownItem, "unknown item"};
        }
    }
    return request;
}

} // namespace kelutv::wire
