#include "Request.h"

#include "ScalarReader.h"

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
        std::optional<Scalars> scalars = readScalars(mData, item.kind, countOf(item));
        if (!scalars) {
            mRequest.fault = faultAt(item);
            return {};
        }
        return std::move(*scalars);
    }

    std::size_t countOf(const RequestItem& item) const {
        switch (item.kind) {
        case Kind::Bytes:
            return blockLength(item, 1);
        case Kind::Ints:
            return blockLength(item, sizeof(std::int32_t));
        case Kind::Doubles:
            return blockLength(item, sizeof(double));
        case Kind::Int32:
        case Kind::Double:
        case Kind::CString:
        case Kind::String16:
            break;
        }
        return 1;
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

    Fault faultAt(const RequestItem& item) const {
        if (item.kind == Kind::CString && mData.dataAvail() != 0) {
            return {Result::UnterminatedText, std::string("text ") + item.name + " has no end"};
        }
        return {Result::MissingData, std::string(item.name) + " is missing"};
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
    request.argumentsAt = data.dataPosition();
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
