#include <utils/RefBase.h>

namespace android {

RefBase::RefBase() : mRefs(new weakref_type(this)) {}

RefBase::~RefBase() {
    // An object that never had a strong reference ends here without having counted down to 0.
    mRefs->mStrong.store(0, std::memory_order_relaxed);
    mRefs->decWeak(this);
}

void RefBase::incStrong(const void*) const {
    if (mRefs->mStrong.fetch_add(1, std::memory_order_relaxed) == kNeverReferenced) {
        mRefs->mStrong.fetch_sub(kNeverReferenced, std::memory_order_relaxed);
        const_cast<RefBase*>(this)->onFirstRef();
    }
}

void RefBase::decStrong(const void* id) const {
    if (mRefs->mStrong.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        const_cast<RefBase*>(this)->onLastStrongRef(id);
        delete this;
    }
}

std::int32_t RefBase::getStrongCount() const {
    const std::int32_t count = mRefs->mStrong.load(std::memory_order_relaxed);
    return count >= kNeverReferenced ? count - kNeverReferenced : count;
}

RefBase::weakref_type* RefBase::createWeak(const void* id) const {
    mRefs->incWeak(id);
    return mRefs;
}

void RefBase::onLastStrongRef(const void*) {}

void RefBase::weakref_type::incWeak(const void*) { mWeak.fetch_add(1, std::memory_order_relaxed); }

void RefBase::weakref_type::decWeak(const void*) {
    if (mWeak.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete this;
    }
}

bool RefBase::weakref_type::attemptIncStrong(const void*) {
    std::int32_t count = mStrong.load(std::memory_order_relaxed);
    while (count > 0) {
        if (mStrong.compare_exchange_weak(count, count + 1, std::memory_order_acq_rel, std::memory_order_relaxed)) {
            if (count == kNeverReferenced) {
                mStrong.fetch_sub(kNeverReferenced, std::memory_order_relaxed);
                mBase->onFirstRef();
            }
            return true;
        }
    }
    return false;
}

std::int32_t RefBase::weakref_type::getWeakCount() const { return mWeak.load(std::memory_order_relaxed); }

} // namespace android
