#include "foreign/platform/droid/RemoteObject.h"

#include <binder/Parcel.h>

#include <algorithm>
#include <thread>
#include <utility>

namespace foreign {

using android::sp;
using android::status_t;
using android::wp;

status_t RemoteObject::linkToDeath(const sp<DeathRecipient>& recipient, void* /*cookie*/, std::uint32_t /*flags*/) {
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mIsDead) {
        return android::DEAD_OBJECT;
    }
    mRecipients.emplace_back(recipient);
    if (!std::exchange(mIsWatched, true)) {
        watch();
    }
    return android::NO_ERROR;
}

status_t RemoteObject::unlinkToDeath(const wp<DeathRecipient>& recipient, void* /*cookie*/, std::uint32_t /*flags*/,
                                     wp<DeathRecipient>* /*out*/) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto found = std::find(mRecipients.begin(), mRecipients.end(), recipient);
    if (found == mRecipients.end()) {
        return mIsDead ? static_cast<status_t>(android::DEAD_OBJECT) : static_cast<status_t>(android::NOT_LINKED);
    }
    mRecipients.erase(found);
    return android::NO_ERROR;
}

status_t RemoteObject::transact(std::uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                std::uint32_t /*flags*/) {
    const Bytes request(data.data(), data.data() + data.dataSize());
    Bytes answer;
    const status_t status = mRemote->call(code, request, answer);
    if (status == android::NO_ERROR && reply != nullptr) {
        return reply->setData(answer.data(), answer.size());
    }
    return status;
}

void RemoteObject::watch() {
    std::thread([remote = mRemote, object = wp<RemoteObject>(this)] {
        remote->awaitEnd();
        if (const sp<RemoteObject> living = object.promote(); living != nullptr) {
            living->tellOfTheEnd();
        }
    }).detach();
}

void RemoteObject::tellOfTheEnd() {
    std::vector<wp<DeathRecipient>> recipients;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mIsDead = true;
        recipients.swap(mRecipients);
    }
    for (const wp<DeathRecipient>& recipient : recipients) {
        if (const sp<DeathRecipient> living = recipient.promote(); living != nullptr && living->wantsNotice()) {
            living->binderDied(wp<IBinder>(this));
        }
    }
}

} // namespace foreign
