#include "LateNotice.h"

#include "PeerProtocol.h"
#include "support/Deadline.h"

#include <binder/IServiceManager.h>
#include <binder/Parcel.h>

#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace kelutv::test {

namespace {

using android::IBinder;
using android::NO_ERROR;
using android::sp;

/** Notices that are never told can only be waited for. */
constexpr std::chrono::milliseconds kNoticePatience{500};

std::atomic<bool> gTold{false};

class Note : public IBinder::DeathRecipient {
public:
    void binderDied(const android::wp<IBinder>&) override { gTold = true; }
};

/** The watch outlives it, as one does that is being told while its holder is destroyed. */
class Watcher {
public:
    explicit Watcher(const std::string& name)
        : mBinder(*new sp<IBinder>(android::defaultServiceManager()->checkService(android::String16(name.c_str())))),
          mNote(*new sp<IBinder::DeathRecipient>(new Note)), mWatches(mBinder->linkToDeath(mNote) == NO_ERROR) {}

    ~Watcher() {
        std::fputs(kExiting, stdout);
        std::fflush(stdout);
        if (eventually([] { return gTold.load(); }, kNoticePatience)) {
            ::_exit(kToldAtExit);
        }
    }

    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    bool watches() const { return mWatches; }

    /** A call that is too large to be sent. */
    bool isRefused() const {
        android::Parcel request;
        android::Parcel reply;
        const std::vector<char> payload(kLargestTransaction + 1);
        request.write(payload.data(), payload.size());
        return mBinder->transact(kEcho, request, &reply) != NO_ERROR;
    }

private:
    const sp<IBinder>& mBinder;
    const sp<IBinder::DeathRecipient>& mNote;
    const bool mWatches;
};

const Watcher& watcherOf(const std::string& name) {
    static const Watcher watcher(name);
    return watcher;
}

} // namespace

int exitBeforeNotice(const std::vector<std::string>& arguments) {
    const std::string& name = arguments.at(0);
    if (arguments.at(1) == "main") {
        return watcherOf(name).watches() ? 0 : 1;
    }
    bool ready = false;
    std::thread([&] { ready = watcherOf(name).watches() && watcherOf(name).isRefused(); }).join();
    return ready ? 0 : 1;
}

} // namespace kelutv::test
