#include "ExitingCaller.h"

#include "PeerProtocol.h"
#include "support/Deadline.h"

#include <binder/Binder.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <keluem/emal.h>

#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <memory>
#include <mutex>
#include <thread>

namespace kelutv::test {

namespace {

constexpr int kThreads = 4;

class Proxy : public android::BpRefBase {
public:
    explicit Proxy(const android::sp<android::IBinder>& object) : BpRefBase(object) {}

    android::status_t call() {
        const android::Parcel request;
        android::Parcel reply;
        return remote()->transact(kEcho, request, &reply);
    }
};

/** Counts the threads that have been answered at least once; outlives the statics. */
struct Progress {
    std::mutex mutex;
    std::condition_variable changed;
    int answered = 0;
    bool failed = false;

    void count(android::status_t status) {
        const std::lock_guard lock(mutex);
        ++answered;
        failed = failed || status != android::NO_ERROR;
        changed.notify_all();
    }

    bool allAnswered() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return answered == kThreads; });
        return !failed;
    }
};

Proxy& proxyOf(const std::string& name) {
    static const android::sp<Proxy> proxy(
        new Proxy(android::defaultServiceManager()->checkService(android::String16(name.c_str()))));
    return *proxy;
}

[[noreturn]] void callWithoutEnd(Proxy& proxy, Progress& progress) {
    progress.count(proxy.call());
    for (;;) {
        proxy.call();
    }
}

} // namespace

namespace {

std::atomic<int> gDelivered{0};

[[noreturn]] void blockDelivery() {
    ++gDelivered;
    for (;;) {
        ::pause();
    }
}

class Blocked : public android::IBinder::DeathRecipient {
public:
    void binderDied(const android::wp<android::IBinder>&) override { blockDelivery(); }
};

} // namespace

int exitInDeliveries(const std::vector<std::string>& arguments) {
    const android::sp<android::IBinder> binder =
        android::defaultServiceManager()->checkService(android::String16(arguments.at(0).c_str()));
    const android::sp<Blocked> blocked = new Blocked;
    if (binder->linkToDeath(blocked) != android::NO_ERROR ||
        EMAL_AddListener(kDeliveredModule, [](unsigned, void*, unsigned, void*) { blockDelivery(); }) != 0) {
        return 1;
    }
    std::fputs(kPeerReady, stdout);
    std::fflush(stdout);
    if (!eventually([] { return gDelivered == 2; })) {
        return 2;
    }
    std::fputs(kDelivered, stdout);
    std::fflush(stdout);
    return 0;
}

int exitInCalls(const std::vector<std::string>& arguments) {
    Proxy& proxy = proxyOf(arguments.at(0));
    static Progress* const progress = new Progress;
    for (int i = 0; i < kThreads; ++i) {
        std::thread([&proxy] { callWithoutEnd(proxy, *progress); }).detach();
    }
    return progress->allAnswered() ? 0 : 1;
}

} // namespace kelutv::test
