#include "KernelObject.h"

#include "KernelBinder.h"
#include "KernelConversation.h"
#include "socket/ProcessLife.h"

#include <binder/Parcel.h>

#include <utility>

namespace android {

KernelObject::KernelObject(KernelBinder& binder, uint32_t handle) : mBinder(binder), mHandle(handle) {
    mBinder.handles().acquire(mHandle);
}

KernelObject::~KernelObject() {
    if (kq::inForkedChild()) {
        return;
    }
    if (mWatch != 0) {
        mBinder.handles().unwatch(mHandle, mWatch);
    }
    mBinder.handles().release(mHandle);
}

status_t KernelObject::transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) {
    return KernelConversation(mBinder).call(mHandle, code, data, reply, flags);
}

status_t KernelObject::watch(std::function<void()> onDeath) {
    // The driver takes a request for a dead object too, and tells at once; a call that waits for nothing tells first.
    if (transact(IBinder::PING_TRANSACTION, Parcel(), nullptr, IBinder::FLAG_ONEWAY) == DEAD_OBJECT) {
        return DEAD_OBJECT;
    }
    if (!mBinder.startTelling()) {
        return NO_MEMORY;
    }
    mWatch = mBinder.handles().watch(mHandle, std::move(onDeath));
    return mWatch == 0 ? DEAD_OBJECT : NO_ERROR;
}

} // namespace android
