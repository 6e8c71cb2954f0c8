#include "PeerService.h"

#include "PeerProtocol.h"
#include "support/Deadline.h"

#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <numeric>

namespace kelutv::test {

using android::NO_ERROR;
using android::Parcel;
using android::status_t;

namespace {

// Should nobody end it.
constexpr unsigned kHelpersSeconds = 60;

status_t replyOfSize(int32_t size, Parcel* reply) {
    const std::vector<std::uint8_t> bytes = pattern(static_cast<std::size_t>(size));
    return reply->setData(bytes.data(), bytes.size());
}

status_t writeSum(const Parcel& data, Parcel* reply) {
    reply->writeInt32(static_cast<int32_t>(data.dataSize()));
    return reply->writeInt64(std::accumulate(data.data(), data.data() + data.dataSize(), int64_t{0}));
}

status_t writeCaller(Parcel* reply) {
    const android::IPCThreadState* const thread = android::IPCThreadState::self();
    reply->writeInt32(thread->getCallingPid());
    return reply->writeInt32(static_cast<int32_t>(thread->getCallingUid()));
}

status_t forward(const Parcel& data, Parcel* reply) {
    const android::sp<android::IBinder> service = android::defaultServiceManager()->checkService(data.readString16());
    return service == nullptr ? android::NAME_NOT_FOUND
                              : service->transact(static_cast<uint32_t>(data.readInt32()), Parcel(), reply);
}

status_t forkChild(Parcel* reply) {
    const pid_t child = ::fork();
    const bool gone = child > 0 && eventually([child] { return ::waitpid(child, nullptr, WNOHANG) == child; });
    if (child > 0 && !gone) {
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
    }
    return reply->writeInt32(gone ? 1 : 0);
}

status_t forkHelper(Parcel* reply) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(kHelpersSeconds);
        ::pause();
        ::_exit(0);
    }
    return reply->writeInt32(child);
}

status_t fillTable() {
    while (::dup(STDERR_FILENO) >= 0) {
    }
    return errno == EMFILE ? NO_ERROR : android::UNKNOWN_ERROR;
}

status_t failWith(status_t status, Parcel* reply) {
    if (reply != nullptr) {
        reply->writeInt32(1);
    }
    return status;
}

} // namespace

std::vector<std::uint8_t> pattern(std::size_t size) {
    std::vector<std::uint8_t> bytes(size);
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 4096);
    }
    return bytes;
}

const android::String16& PeerService::getInterfaceDescriptor() const {
    static const android::String16* const descriptor = new android::String16(kPeerDescriptor);
    return *descriptor;
}

status_t PeerService::onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    switch (code) {
    case kEcho:
        return reply->setData(data.data(), data.dataSize());
    case kReplyOfSize:
        return replyOfSize(data.readInt32(), reply);
    case kSum:
        return writeSum(data, reply);
    case kPositions:
        return reply->writeInt32(static_cast<int32_t>(data.dataPosition()));
    case kStatus:
        return failWith(data.readInt32(), reply);
    case kCaller:
        return writeCaller(reply);
    case kMeet:
        return meet(data.readInt32(), reply);
    case kHold:
        hold();
        return NO_ERROR;
    case kHeld: {
        const std::lock_guard lock(mMutex);
        return reply->writeInt32(mHeld);
    }
    case kRelease: {
        const std::lock_guard lock(mMutex);
        ++mReleases;
        mChanged.notify_all();
        return NO_ERROR;
    }
    case kNote:
        note(data.readInt32());
        return NO_ERROR;
    case kNotes:
        writeNotes(reply);
        return NO_ERROR;
    case kForward:
        return forward(data, reply);
    case kFork:
        return forkChild(reply);
    case kFillTable:
        return fillTable();
    case kForkHelper:
        return forkHelper(reply);
    case kExit:
        std::_Exit(0);
    default:
        return BBinder::onTransact(code, data, reply, flags);
    }
}

status_t PeerService::meet(int32_t callers, Parcel* reply) {
    std::unique_lock lock(mMutex);
    ++mInside;
    mChanged.notify_all();
    const bool met = mChanged.wait_for(lock, kPatience, [&] { return mInside >= callers; });
    return reply->writeInt32(met ? 1 : 0);
}

void PeerService::hold() {
    std::unique_lock lock(mMutex);
    ++mHeld;
    mChanged.wait_for(lock, 2 * kPatience, [this, before = mReleases] { return mReleases != before; });
    --mHeld;
}

void PeerService::note(int32_t value) {
    const std::lock_guard lock(mMutex);
    mNotes.push_back(value);
}

void PeerService::writeNotes(Parcel* reply) {
    const std::lock_guard lock(mMutex);
    for (const int32_t value : mNotes) {
        reply->writeInt32(value);
    }
}

} // namespace kelutv::test
