#include <utils/RefBase.h>

#include <atomic>
#include <chrono>

namespace android {

struct RefBase::Counts {
    std::atomic<std::int32_t> strong{0};
    /** The object itself is one of them. */
    std::atomic<std::int32_t> weak{1};
};

RefBase::RefBase()
    : mBirth(static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count())),
      mCounts(new Counts) {}

RefBase::~RefBase() { decWeak(mCounts); }

const char* RefBase::kind() const { return "object"; }

void RefBase::onFirstRef() {}

bool RefBase::onIncStrongAttempted(const void* /*holder*/) { return true; }

void RefBase::onLastStrongRef(const void* /*holder*/) {}

void RefBase::incStrong(const void* /*holder*/) const {
    if (mCounts->strong.fetch_add(1) == 0) {
        const_cast<RefBase*>(this)->onFirstRef();
    }
}

void RefBase::decStrong(const void* holder) const {
    if (mCounts->strong.fetch_sub(1) == 1) {
        const_cast<RefBase*>(this)->onLastStrongRef(holder);
        delete this;
    }
}

RefBase::Counts* RefBase::incWeak() const { return incWeak(mCounts); }

RefBase::Counts* RefBase::incWeak(Counts* counts) {
    if (counts != nullptr) {
        counts->weak.fetch_add(1);
    }
    return counts;
}

void RefBase::decWeak(Counts* counts) {
    if (counts != nullptr && counts->weak.fetch_sub(1) == 1) {
        delete counts;
    }
}

bool RefBase::attemptIncStrong(Counts* counts) {
    std::int32_t held = counts == nullptr ? 0 : counts->strong.load();
    while (held > 0 && !counts->strong.compare_exchange_weak(held, held + 1)) {
    }
    return held > 0;
}

} // namespace android
