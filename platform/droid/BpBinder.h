#pragma once

#include "Transport.h"

#include <binder/IBinder.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace android {

/** An object of another process. */
class BpBinder final : public IBinder {
public:
    explicit BpBinder(std::unique_ptr<RemoteObject> object);

    const String16& getInterfaceDescriptor() const override;
    bool isBinderAlive() const override { return !mDied.load(std::memory_order_acquire); }
    status_t pingBinder() override;
    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags = 0) override;
    status_t linkToDeath(const sp<DeathRecipient>& recipient, void* cookie = nullptr, uint32_t flags = 0) override;
    status_t unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie = nullptr, uint32_t flags = 0,
                           wp<DeathRecipient>* outRecipient = nullptr) override;
    BpBinder* remoteBinder() override { return this; }

    const RemoteObject& object() const { return *mObject; }

private:
    struct DeathLink {
        wp<DeathRecipient> recipient;
        void* cookie;
    };

    ~BpBinder() override;

    status_t transactUnanswered(uint32_t code, const Parcel& data, uint32_t flags);
    bool addLink(const DeathLink& link, status_t* status);
    status_t watchObject();
    void watchAsked(status_t status, const DeathLink& link);
    void objectDied();
    std::vector<DeathLink> takeLinks();

    const std::unique_ptr<RemoteObject> mObject;
    std::atomic<bool> mDied{false};
    mutable std::once_flag mDescriptorAsked;
    mutable String16 mDescriptor;
    std::mutex mMutex;
    std::condition_variable mWatchAsked;
    bool mAskingWatch = false;
    bool mWatched = false;
    std::vector<DeathLink> mLinks;
};

} // namespace android
