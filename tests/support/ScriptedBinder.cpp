#include "support/ScriptedBinder.h"

#include "support/Deadline.h"
#include "support/ScriptedProtocol.h"

#include "droid/ReceivedParcel.h"

#include <binder/IPCThreadState.h>

#include <cstdlib>
#include <cstring>

namespace kelutv::test {

using android::Parcel;
using android::status_t;

namespace {

/** The runtime tells nobody that a reply is out; that it needs the reply's bytes no more shows it. */
void exitWhenSent(const Bytes& bytes, Parcel* reply) {
    android::ReceivedParcel::adopt(
        reply, bytes.data(), bytes.size(), [](void*, const std::uint8_t*) { std::_Exit(0); }, nullptr);
}

Bytes bytesOf(const Parcel& data) {
    Bytes bytes(static_cast<std::size_t>(data.readInt32()));
    data.read(bytes.data(), bytes.size());
    return bytes;
}

/** The word behind the interface token; 0 for a request that is too short to have one. */
std::int32_t commandOf(const Parcel& request) {
    static const std::size_t kTokenSize = Wire::request(0).bytes().size() - sizeof(std::int32_t);
    std::int32_t command = 0;
    if (request.dataSize() >= kTokenSize + sizeof command) {
        std::memcpy(&command, request.data() + kTokenSize, sizeof command);
    }
    return command;
}

} // namespace

status_t ScriptedBinder::onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t) {
    return code == scripted::kRequest ? answer(data, reply) : obey(code, data, reply);
}

status_t ScriptedBinder::answer(const Parcel& data, Parcel* reply) {
    std::unique_lock lock(mMutex);
    mRequests.emplace_back(data.data(), data.data() + data.dataSize());
    mCallerUid = static_cast<int>(android::IPCThreadState::self()->getCallingUid());
    mCallerPid = static_cast<int>(android::IPCThreadState::self()->getCallingPid());
    if (mExit == Exit::BeforeReply) {
        std::_Exit(0);
    }
    hang(lock);
    if (mStatus != android::NO_ERROR) {
        return mStatus;
    }
    const Bytes& bytes = replyTo(data);
    if (mExit == Exit::AfterReply) {
        exitWhenSent(bytes, reply);
        return android::NO_ERROR;
    }
    return reply->setData(bytes.data(), bytes.size());
}

status_t ScriptedBinder::obey(uint32_t code, const Parcel& data, Parcel* reply) {
    const std::lock_guard lock(mMutex);
    switch (code) {
    case scripted::kReplyWith:
        mReply = bytesOf(data);
        mReplies.clear();
        mStatus = android::NO_ERROR;
        break;
    case scripted::kReplyToCommand: {
        const std::int32_t command = data.readInt32();
        mReplies[command] = bytesOf(data);
        break;
    }
    case scripted::kReplyStatus:
        mStatus = data.readInt32();
        break;
    case scripted::kTakeRequests:
        writeRequests(reply);
        break;
    case scripted::kHangNext:
        mHangNext = true;
        break;
    case scripted::kIsHanging:
        reply->writeInt32(mHanging ? 1 : 0);
        break;
    case scripted::kRelease:
        mHangNext = false;
        mHanging = false;
        mChanged.notify_all();
        break;
    case scripted::kExitBeforeReply:
        mExit = Exit::BeforeReply;
        break;
    case scripted::kExitAfterReply:
        mExit = Exit::AfterReply;
        break;
    case scripted::kLastCaller:
        reply->writeInt32(mCallerUid);
        reply->writeInt32(mCallerPid);
        break;
    default:
        return android::UNKNOWN_TRANSACTION;
    }
    return android::NO_ERROR;
}

const Bytes& ScriptedBinder::replyTo(const Parcel& request) const {
    const auto found = mReplies.find(commandOf(request));
    return found == mReplies.end() ? mReply : found->second;
}

void ScriptedBinder::hang(std::unique_lock<std::mutex>& lock) {
    if (mHangNext) {
        mHangNext = false;
        mHanging = true;
        mChanged.wait_for(lock, kPatience, [this] { return !mHanging; });
    }
}

void ScriptedBinder::writeRequests(Parcel* reply) {
    reply->writeInt32(static_cast<std::int32_t>(mRequests.size()));
    for (const Bytes& request : mRequests) {
        reply->writeInt32(static_cast<std::int32_t>(request.size()));
        reply->write(request.data(), request.size());
    }
    mRequests.clear();
}

} // namespace kelutv::test
