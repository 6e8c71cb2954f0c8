#include "KernelObject.h"

#include "KernelBinder.h"
#include "KernelConversation.h"
#include "socket/ProcessLife.h"

#include <new>
#include <utility>

namespace android {

KernelObject::KernelObject(KernelBinder& binder, uint32_t handle) : mBinder(binder), mHandle(handle) {}

std::unique_ptr<KernelObject> KernelObject::hold(KernelBinder& binder, uint32_t handle) {
    std::unique_ptr<KernelObject> object(new KernelObject(binder, handle));
    object->mHeld = binder.handles().acquire(handle);
    return object->mHeld ? std::move(object) : nullptr;
}

KernelObject::~KernelObject() {
    if (kq::inForkedChild() || !mHeld) {
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
    if (!mBinder.startTelling()) {
        return NO_MEMORY;
    }
    try {
        return mBinder.handles().watch(mHandle, std::move(onDeath), &mWatch);
    } catch (const std::bad_alloc&) {
        return NO_MEMORY;
    }
}

} // namespace android
