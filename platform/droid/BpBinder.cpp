#include "BpBinder.h"

#include "ProxyKeeper.h"
#include "socket/ProcessLife.h"

#include <binder/Parcel.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace android {

BpBinder::BpBinder(std::unique_ptr<RemoteObject> object) : mObject(std::move(object)) {}

BpBinder::~BpBinder() = default;

const String16& BpBinder::getInterfaceDescriptor() const {
    std::call_once(mDescriptorAsked, [this] {
        const Parcel request;
        Parcel reply;
        if (const_cast<BpBinder*>(this)->transact(INTERFACE_TRANSACTION, request, &reply, 0) == NO_ERROR) {
            mDescriptor = reply.readString16();
        }
    });
    return mDescriptor;
}

status_t BpBinder::pingBinder() {
    const Parcel request;
    Parcel reply;
    return transact(PING_TRANSACTION, request, &reply, 0);
}

[[gnu::noinline]] status_t BpBinder::transactUnanswered(uint32_t code, const Parcel& data, uint32_t flags) {
    Parcel unwanted;
    return transact(code, data, &unwanted, flags);
}

status_t BpBinder::transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    if (reply == nullptr) {
        return transactUnanswered(code, data, flags);
    }
    reply->freeData();
    if (kq::inForkedChild()) {
        return DEAD_OBJECT;
    }
    ProxyKeeper::arm();
    if (!isBinderAlive()) {
        return DEAD_OBJECT;
    }
    if (data.dataSize() > kMaxTransaction) {
        return FAILED_TRANSACTION;
    }
    // The caller's reference may be dropped by another thread, or by the exit of the process, before the reply is here.
    const sp<BpBinder> alive(this);
    return mObject->transact(code, data, reply, flags);
}

status_t BpBinder::linkToDeath(const sp<DeathRecipient>& recipient, void* cookie, uint32_t) {
    if (recipient == nullptr) {
        return BAD_VALUE;
    }
    if (kq::inForkedChild()) {
        return DEAD_OBJECT;
    }
    const DeathLink link{recipient, cookie};
    status_t status = NO_ERROR;
    if (addLink(link, &status)) {
        status = watchObject();
        watchAsked(status, link);
    }
    return status;
}

/** True when the caller has then to have the object watched. */
bool BpBinder::addLink(const DeathLink& link, status_t* status) {
    std::unique_lock<std::mutex> lock(mMutex);
    mWatchAsked.wait(lock, [this] { return !mAskingWatch; });
    if (mDied.load(std::memory_order_relaxed)) {
        *status = DEAD_OBJECT;
        return false;
    }
    mLinks.push_back(link);
    mAskingWatch = !mWatched;
    return mAskingWatch;
}

/** Without the lock: it may ask the object's process, and what goes wrong is logged. */
status_t BpBinder::watchObject() {
    return mObject->watch([weak = wp<BpBinder>(this)] {
        if (const sp<BpBinder> binder = weak.promote(); binder != nullptr) {
            binder->objectDied();
        }
    });
}

void BpBinder::watchAsked(status_t status, const DeathLink& link) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mAskingWatch = false;
    mWatched = status == NO_ERROR;
    if (!mWatched) {
        const auto added = std::find_if(mLinks.rbegin(), mLinks.rend(), [&link](const DeathLink& candidate) {
            return candidate.recipient == link.recipient && candidate.cookie == link.cookie;
        });
        if (added != mLinks.rend()) {
            mLinks.erase(std::next(added).base());
        }
    }
    mWatchAsked.notify_all();
}

status_t BpBinder::unlinkToDeath(const wp<DeathRecipient>& recipient, void* cookie, uint32_t,
                                 wp<DeathRecipient>* outRecipient) {
    if (kq::inForkedChild()) {
        return DEAD_OBJECT;
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mDied.load(std::memory_order_relaxed)) {
        return DEAD_OBJECT;
    }
    const bool byCookie = recipient.unsafe_get() == nullptr;
    const auto link = std::find_if(mLinks.begin(), mLinks.end(), [&](const DeathLink& candidate) {
        return byCookie ? cookie != nullptr && candidate.cookie == cookie : candidate.recipient == recipient;
    });
    if (link == mLinks.end()) {
        return NAME_NOT_FOUND;
    }
    if (outRecipient != nullptr) {
        *outRecipient = link->recipient;
    }
    mLinks.erase(link);
    return NO_ERROR;
}

std::vector<BpBinder::DeathLink> BpBinder::takeLinks() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mDied.store(true, std::memory_order_release);
    return std::exchange(mLinks, {});
}

void BpBinder::objectDied() {
    for (const DeathLink& link : takeLinks()) {
        if (const sp<DeathRecipient> recipient = link.recipient.promote(); recipient != nullptr) {
            recipient->binderDied(wp<IBinder>(this));
        }
    }
}

} // namespace android
