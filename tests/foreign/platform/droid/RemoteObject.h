#pragma once

#include "foreign/platform/droid/Route.h"

#include <binder/IBinder.h>

#include <memory>
#include <mutex>
#include <vector>

namespace foreign {

/** What a service manager hands out. */
class RemoteObject : public android::IBinder {
public:
    explicit RemoteObject(std::shared_ptr<Remote> remote) : mRemote(std::move(remote)) {}

    android::status_t linkToDeath(const android::sp<DeathRecipient>& recipient, void* cookie,
                                  std::uint32_t flags) override;
    android::status_t unlinkToDeath(const android::wp<DeathRecipient>& recipient, void* cookie, std::uint32_t flags,
                                    android::wp<DeathRecipient>* out) override;
    android::status_t transact(std::uint32_t code, const android::Parcel& data, android::Parcel* reply,
                               std::uint32_t flags) override;

private:
    void watch();
    void tellOfTheEnd();

    const std::shared_ptr<Remote> mRemote;
    std::mutex mMutex;
    bool mIsWatched = false;
    bool mIsDead = false;
    std::vector<android::wp<DeathRecipient>> mRecipients;
};

} // namespace foreign
