#include "platform/droid/Calls.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"
#include "support/Wire.h"

#include <binder/Binder.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <binder/ProcessState.h>

#include <gtest/gtest.h>

#include <linux/android/binder.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdarg>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace {

thread_local int tIoctls = 0;
/** Where this thread notes its ioctls; null when it does not. */
thread_local std::vector<unsigned long>* tRequests = nullptr;

} // namespace

// Stands before the C library's for all libraries of this program.
extern "C" [[gnu::visibility("default")]] int ioctl(int descriptor, unsigned long request, ...) noexcept {
    std::va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    ++tIoctls;
    if (tRequests != nullptr) {
        tRequests->push_back(request);
    }
    return static_cast<int>(::syscall(SYS_ioctl, descriptor, request, argument));
}

namespace kelutv::test {
namespace {

using android::NO_ERROR;
using android::Parcel;
using android::sp;

TEST(IoctlsOfACaller, areOneACall) {
    constexpr int kCalls = 1000;
    const RuntimeDir directory;
    const Peer peer;
    const sp<android::IBinder> binder = peer.binder();
    ASSERT_EQ(call(binder, kEcho, replyOf({7})).status, NO_ERROR);
    const int before = tIoctls;
    for (int made = 0; made < kCalls; ++made) {
        ASSERT_EQ(call(binder, kEcho, replyOf({made})).bytes, replyOf({made}));
    }
    EXPECT_EQ(tIoctls - before, kCalls);
}

TEST(IoctlsOfACaller, areTwoWhenItsThreadEnds) {
    const RuntimeDir directory;
    const Peer peer;
    const sp<android::IBinder> binder = peer.binder();
    std::vector<unsigned long> requests;
    std::thread([&] {
        ASSERT_EQ(call(binder, kEcho, replyOf({7})).status, NO_ERROR);
        tRequests = &requests;
    }).join();
    EXPECT_EQ(requests, (std::vector<unsigned long>{BINDER_WRITE_READ, BINDER_THREAD_EXIT}));
}

/** Notes at each call how many ioctls its thread has made. */
class Counting : public android::BBinder {
public:
    /** For each thread that serves, its ioctls from one call to the next. */
    std::map<std::thread::id, std::vector<int>> betweenCalls() {
        const std::lock_guard lock(mMutex);
        std::map<std::thread::id, std::vector<int>> between;
        for (const auto& [thread, counts] : mCounts) {
            for (size_t at = 1; at < counts.size(); ++at) {
                between[thread].push_back(counts[at] - counts[at - 1]);
            }
        }
        return between;
    }

    size_t calls() {
        const std::lock_guard lock(mMutex);
        size_t calls = 0;
        for (const auto& entry : mCounts) {
            calls += entry.second.size();
        }
        return calls;
    }

protected:
    android::status_t onTransact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override {
        if (code != FIRST_CALL_TRANSACTION) {
            return BBinder::onTransact(code, data, reply, flags);
        }
        const std::lock_guard lock(mMutex);
        mCounts[std::this_thread::get_id()].push_back(tIoctls);
        return reply->writeInt32(0);
    }

private:
    std::mutex mMutex;
    std::map<std::thread::id, std::vector<int>> mCounts;
};

/** Has a peer call this process, on a thread that does not wait for it. */
void beCalledBy(const sp<android::IBinder>& peer, const char* service) {
    Parcel request;
    request.writeString16(android::String16(service));
    request.writeInt32(android::IBinder::FIRST_CALL_TRANSACTION);
    EXPECT_EQ(peer->transact(kForward, request, nullptr, android::IBinder::FLAG_ONEWAY), NO_ERROR);
}

TEST(IoctlsOfAService, areTwoACall) {
    constexpr size_t kCalls = 200;
    const RuntimeDir directory;
    const Peer peer;
    const sp<android::IBinder> binder = peer.binder();
    const sp<Counting> counting = new Counting;
    android::ProcessState::self()->startThreadPool();
    ASSERT_EQ(android::defaultServiceManager()->addService(android::String16("counting"), counting), NO_ERROR);
    for (size_t made = 0; made < kCalls; ++made) {
        beCalledBy(binder, "counting");
    }
    ASSERT_TRUE(eventually([&] { return counting->calls() == kCalls; }));
    // The driver ends the first of them at once, with the word that it has the answer.
    for (const auto& [thread, between] : counting->betweenCalls()) {
        for (size_t at = 1; at < between.size(); ++at) {
            EXPECT_EQ(between[at], 2) << "before call " << at + 1 << " of " << between.size();
        }
    }
}

} // namespace
} // namespace kelutv::test
