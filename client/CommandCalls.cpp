#include "CommandCalls.h"

#include "Failures.h"
#include "InterfaceToken.h"

#include <kelutv/link/TVBaseClient.h>

namespace kelutv::internal {

using android::NO_ERROR;
using android::Parcel;
using android::status_t;
using android::TVBaseClient;

status_t Argument::appendTo(Parcel& request) const {
    switch (mKind) {
    case Kind::Number:
        return request.writeInt32(mNumber);
    case Kind::Text:
        return request.writeCString(mText);
    case Kind::Parcel:
        return request.appendFrom(mParcel, 0, mParcel->dataSize());
    case Kind::Bytes:
        return mLength == 0 ? NO_ERROR : request.write(mBytes, static_cast<size_t>(mLength));
    }
    return NO_ERROR;
}

namespace {

/** Writes the token and `words`, the command first. Returns 0, or another number when they could not be written. */
status_t begin(Parcel& request, std::initializer_list<int> words) {
    const status_t written = request.writeInterfaceToken(TBS_INTERFACE_NAME);
    return written | request.write(words.begin(), words.size() * sizeof(int));
}

bool send(TVBaseClient& client, status_t written, const Parcel& request, Parcel& reply) {
    return written == NO_ERROR && client.invoke(request, &reply) == NO_ERROR;
}

/** Sends one command with numbers alone: `words` is the command and what it takes. */
inline bool exchange(TVBaseClient& client, std::initializer_list<int> words, Parcel& reply) {
    Parcel request;
    return send(client, begin(request, words), request, reply);
}

} // namespace

bool exchange(TVBaseClient& client, int command, std::initializer_list<Argument> arguments, Parcel& reply) {
    Parcel request;
    status_t written = begin(request, {command});
    for (const Argument& argument : arguments) {
        written |= argument.appendTo(request);
    }
    return send(client, written, request, reply);
}

bool succeeds(TVBaseClient& client, int command, std::initializer_list<Argument> arguments, Parcel& reply) {
    return exchange(client, command, arguments, reply) && reply.readInt32() == 0;
}

} // namespace kelutv::internal

namespace android {

namespace {

using namespace kelutv::internal;
using Arguments = std::initializer_list<Argument>;
using Words = std::initializer_list<int>;

constexpr size_t kResultSize = sizeof(int32_t);

/** The service's result. */
int resultOf(bool answered, const Parcel& reply) {
    if (!answered) {
        logFailedCall();
        return kFailed;
    }
    return reply.readInt32();
}

int status(TVBaseClient& client, Words words) {
    Parcel reply;
    return resultOf(exchange(client, words, reply), reply);
}

int status(TVBaseClient& client, int cmd, Arguments arguments) {
    Parcel reply;
    return resultOf(exchange(client, cmd, arguments, reply), reply);
}

/** The word behind a result of 0. */
int value(TVBaseClient& client, Words words) {
    Parcel reply;
    return exchange(client, words, reply) && reply.readInt32() == 0 ? reply.readInt32() : kFailed;
}

/** Copies all that stands behind a result of 0. */
int takeBehindResult(const Parcel& reply, Parcel& result) {
    if (reply.readInt32() != 0) {
        return kFailed;
    }
    const size_t behind = reply.dataSize() < kResultSize ? reply.dataSize() : kResultSize;
    return result.setData(reply.data() + behind, reply.dataSize() - behind) == NO_ERROR ? 0 : kFailed;
}

int parcel(TVBaseClient& client, Words words, Parcel& result) {
    Parcel reply;
    return exchange(client, words, reply) ? takeBehindResult(reply, result) : kFailed;
}

int parcel(TVBaseClient& client, int cmd, Arguments arguments, Parcel& result) {
    Parcel reply;
    return exchange(client, cmd, arguments, reply) ? takeBehindResult(reply, result) : kFailed;
}

} // namespace

int TVBaseClient::exeCmdSet(int cmd) { return status(*this, {cmd}); }

int TVBaseClient::exeCmdSet(int cmd, int arg1) { return status(*this, {cmd, arg1}); }

int TVBaseClient::exeCmdSet(int cmd, char* arg1) { return status(*this, cmd, {arg1}); }

int TVBaseClient::exeCmdSet(int cmd, char const* arg1) { return status(*this, cmd, {arg1}); }

int TVBaseClient::exeCmdSet(int cmd, int arg1, char const* arg2) { return status(*this, cmd, {arg1, arg2}); }

int TVBaseClient::exeCmdSet(int cmd, int arg1, char const* arg2, char const* arg3) {
    return status(*this, cmd, {arg1, arg2, arg3});
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2) { return status(*this, {cmd, arg1, arg2}); }

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, int arg3) { return status(*this, {cmd, arg1, arg2, arg3}); }

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, int arg3, int arg4) {
    return status(*this, {cmd, arg1, arg2, arg3, arg4});
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, int arg3, int arg4, int arg5) {
    return status(*this, {cmd, arg1, arg2, arg3, arg4, arg5});
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, char const* arg3) {
    return status(*this, cmd, {arg1, arg2, arg3});
}

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, char const* arg3, int arg4) {
    return status(*this, cmd, {arg1, arg2, arg3, arg4});
}

int TVBaseClient::exeCmdSet(int cmd, char const* arg1, char const* arg2, char const* arg3, char const* arg4) {
    return status(*this, cmd, {arg1, arg2, arg3, arg4});
}

int TVBaseClient::exeCmdSet(int cmd, char const* arg1, int arg2, int arg3, int arg4, int arg5) {
    return status(*this, cmd, {arg1, arg2, arg3, arg4, arg5});
}

int TVBaseClient::exeCmdSet(int cmd, Parcel const& arg) { return status(*this, cmd, {arg}); }

int TVBaseClient::exeCmdSet(int cmd, int arg1, int arg2, Parcel const& arg) {
    return status(*this, cmd, {arg1, arg2, arg});
}

int TVBaseClient::exeCmdSet(int cmd, Parcel const& write, Parcel& read) {
    const int answer = parcel(*this, cmd, {write}, read);
    if (answer != 0) {
        logFailedCall();
    }
    return answer;
}

int TVBaseClient::exeCmdGet(int cmd) { return value(*this, {cmd}); }

int TVBaseClient::exeCmdGet(int cmd, int arg1) { return value(*this, {cmd, arg1}); }

int TVBaseClient::exeCmdGet(int cmd, int arg1, int arg2) { return value(*this, {cmd, arg1, arg2}); }

int TVBaseClient::exeCmdGet(int cmd, int arg1, int arg2, int arg3) { return value(*this, {cmd, arg1, arg2, arg3}); }

int TVBaseClient::exeCmdGet(int cmd, Parcel& result) { return parcel(*this, {cmd}, result); }

int TVBaseClient::exeCmdGet(int cmd, int arg, Parcel& result) { return parcel(*this, {cmd, arg}, result); }

int TVBaseClient::exeCmdGet(int cmd, int arg1, int arg2, Parcel& result) {
    return parcel(*this, {cmd, arg1, arg2}, result);
}

int TVBaseClient::exeCmdGet(int cmd, int arg1, int arg2, int arg3, Parcel& result) {
    return parcel(*this, {cmd, arg1, arg2, arg3}, result);
}

int TVBaseClient::exeCmdGet(int cmd, int doFlag, int param, int dataSize, int* size, unsigned char* data,
                            Parcel& result) {
    return parcel(*this, cmd, {doFlag, param, dataSize, *size, {data, dataSize}}, result);
}

} // namespace android
