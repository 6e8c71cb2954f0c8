#include "Request.h"

#include "Utf8.h"

#include <utils/Errors.h>
#include <utils/String16.h>

#include <utility>

namespace simulator {

using android::Parcel;

namespace {

const android::String16& interfaceToken() {
    static const auto* const token = new android::String16("android.ITVBaseService");
    return *token;
}

/** Reads the items of one request, in order, until one is not there. */
class ArgumentReader {
public:
    ArgumentReader(const Parcel& data, Request& request) : mData(data), mRequest(request) {}

    void read(const Rows<RequestItem>& items) {
        for (const RequestItem& item : items) {
            Scalars scalars = readItem(item);
            if (mRequest.fault) {
                return;
            }
            mRequest.arguments.push_back(std::move(scalars));
        }
        if (mData.dataAvail() != 0) {
            mRequest.fault = {Result::TooMuchData, std::to_string(mData.dataAvail()) + " bytes too many"};
        }
    }

private:
    Scalars readItem(const RequestItem& item) {
        switch (item.kind) {
        case Kind::CString:
            return readText(item);
        case Kind::String16:
            return readText16(item);
        case Kind::Bytes:
            return readBytes(item);
        case Kind::Double:
            return readNumbers<double>(item, 1);
        case Kind::Doubles:
            return readNumbers<double>(item, blockLength(item, sizeof(double)));
        case Kind::Ints:
            return readNumbers<std::int32_t>(item, blockLength(item, sizeof(std::int32_t)));
        case Kind::Int32:
            break;
        }
        return readNumbers<std::int32_t>(item, 1);
    }

    /** The number of elements; a negative one on the wire stands for none. */
    std::size_t blockLength(const RequestItem& item, std::size_t elementSize) const {
        if (item.lengthItem == kRestOfRequest) {
            return mData.dataAvail() / elementSize;
        }
        const Scalars& length = mRequest.arguments[static_cast<std::size_t>(item.lengthItem)];
        const std::int32_t count = std::get<std::int32_t>(length.front());
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }

    template <typename Number> Scalars readNumbers(const RequestItem& item, std::size_t count) {
        if (count > mData.dataAvail() / sizeof(Number)) {
            return missing(item);
        }
        Scalars numbers;
        for (std::size_t i = 0; i < count; ++i) {
            Number number{};
            mData.read(&number, sizeof(number));
            numbers.emplace_back(number);
        }
        return numbers;
    }

    Scalars readBytes(const RequestItem& item) {
        const std::size_t length = blockLength(item, 1);
        const auto* const bytes = static_cast<const char*>(mData.readInplace(length));
        return bytes == nullptr && length != 0 ? missing(item) : Scalars{std::string(bytes, bytes + length)};
    }

    Scalars readText(const RequestItem& item) {
        if (mData.dataAvail() == 0) {
            return missing(item);
        }
        const char* const text = mData.readCString();
        if (text == nullptr) {
            mRequest.fault = {Result::UnterminatedText, std::string("text ") + item.name + " has no end"};
            return {};
        }
        return {std::string(text)};
    }

    Scalars readText16(const RequestItem& item) {
        std::size_t length = 0;
        const char16_t* const units = mData.readString16Inplace(&length);
        return units == nullptr ? missing(item) : Scalars{toUtf8({units, length})};
    }

    Scalars missing(const RequestItem& item) {
        mRequest.fault = {Result::MissingData, std::string(item.name) + " is missing"};
        return {};
    }

    const Parcel& mData;
    Request& mRequest;
};

void readCommand(const Parcel& data, Request& request) {
    std::int32_t number = 0;
    if (data.readInt32(&number) != android::NO_ERROR) {
        request.fault = {Result::MissingData, "the command identifier is missing"};
        return;
    }
    request.number = number;
    request.command = findCommand(number);
    if (request.command == nullptr) {
        request.fault = {Result::UnknownCommand, "unknown command"};
    }
}

} // namespace

Request readRequest(const Parcel& data) {
    Request request;
    request.size = data.dataSize();
    if (!data.enforceInterface(interfaceToken())) {
        request.fault = {Result::WrongToken, "the interface token is not android.ITVBaseService"};
        return request;
    }
    readCommand(data, request);
    if (!request.fault) {
        ArgumentReader(data, request).read(request.command->operation.request);
    }
    if (!request.fault) {
        request.operation = operationOf(*request.command, request.arguments);
        if (request.operation == nullptr) {
            request.fault = {Result::UnknownItem, "unknown item"};
        }
    }
    return request;
}

} // namespace simulator
