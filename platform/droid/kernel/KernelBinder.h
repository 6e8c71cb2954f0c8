#pragma once

#include "BinderDriver.h"
#include "DeathTeller.h"
#include "RemoteHandles.h"
#include "ReturnedBuffers.h"

#include <binder/Binder.h>

#include <linux/android/binder.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>

namespace android {

/** The kernel's binder driver as this process uses it. Outlives everything that refers to it. */
class KernelBinder {
public:
    explicit KernelBinder(std::unique_ptr<BinderDriver> driver);

    BinderDriver& driver() { return *mDriver; }
    RemoteHandles& handles() { return mHandles; }
    OwedCommands& owed() { return mOwed; }
    ReturnedBuffers& returned() { return mReturned; }

    /** Makes an object the one behind handle 0 of every process: 0 or a negative errno value. */
    int becomeContextManager(sp<BBinder> object);
    /** The object that a call from outside is for; null for none. */
    sp<BBinder> target(binder_uintptr_t number);

    /** Starts the first thread that serves what comes in, unless it runs already; the driver asks for further ones. */
    bool startServing();
    /** As startServing, and deaths can be told. */
    bool startTelling();
    void addServer();
    /** Adds a server that the driver asked for when there was no thread to be had: it does not ask again. */
    void addOwedServer() {
        if (mServerOwed && serverIsDue()) {
            addServer();
        }
    }
    void died(binder_uintptr_t cookie);

    /** The object at the parcel's position; null where none stands, or where the driver does not let it be held. */
    sp<IBinder> readObject(const Parcel& parcel);

private:
    int startServer(uint32_t entry);
    bool serverIsDue();

    const std::unique_ptr<BinderDriver> mDriver;
    OwedCommands mOwed;
    ReturnedBuffers mReturned{mOwed};
    RemoteHandles mHandles;
    DeathTeller mTeller;
    std::mutex mMutex;
    bool mServing = false;
    std::atomic<bool> mServerOwed{false};
    std::chrono::steady_clock::time_point mServerTried;
    sp<BBinder> mContextObject;
};

} // namespace android
