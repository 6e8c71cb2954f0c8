#include "ExitingCaller.h"

#include "PeerProtocol.h"

#include <binder/Binder.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>

#include <condition_variable>
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

int exitInCalls(const std::vector<std::string>& arguments) {
    Proxy& proxy = proxyOf(arguments.at(0));
    static Progress* const progress = new Progress;
    for (int i = 0; i < kThreads; ++i) {
        std::thread([&proxy] { callWithoutEnd(proxy, *progress); }).detach();
    }
    return progress->allAnswered() ? 0 : 1;
}

} // namespace kelutv::test
