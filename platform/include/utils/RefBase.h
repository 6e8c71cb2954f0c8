#pragma once

#include <utils/StrongPointer.h>

#include <atomic>
#include <cstdint>

namespace android {

/**
 * Base of every reference-counted object of the runtime.
 *
 * The object is destroyed when its last strong reference goes; a weak reference then still compares and fails to
 * promote. All counting is thread-safe, promotion included. The `id` arguments name the holder and are not used.
 */
class RefBase {
public:
    class weakref_type {
    public:
        /** The object, whether or not it still lives. */
        RefBase* refBase() const { return mBase; }
        void incWeak(const void* id);
        void decWeak(const void* id);
        /** Takes a strong reference if the object still lives: true when it did. */
        bool attemptIncStrong(const void* id);
        /** Weak references, the object's own one included. For diagnostics. */
        std::int32_t getWeakCount() const;

    private:
        friend class RefBase;
        explicit weakref_type(RefBase* base) : mBase(base) {}

        RefBase* const mBase;
        std::atomic<std::int32_t> mStrong{kNeverReferenced};
        std::atomic<std::int32_t> mWeak{1};
    };

    RefBase(const RefBase&) = delete;
    RefBase& operator=(const RefBase&) = delete;

    void incStrong(const void* id) const;
    void decStrong(const void* id) const;
    /** Strong references; 0 for an object that never had one. For diagnostics. */
    std::int32_t getStrongCount() const;

    weakref_type* createWeak(const void* id) const;
    weakref_type* getWeakRefs() const { return mRefs; }

protected:
    RefBase();
    virtual ~RefBase();

    /** Called once, after the first strong reference was taken. */
    virtual void onFirstRef() {}
    /** Called once, after the last strong reference went and before the object is destroyed. */
    virtual void onLastStrongRef(const void* id);

private:
    static constexpr std::int32_t kNeverReferenced = 1 << 28;

    weakref_type* const mRefs;
};

/** Weak reference to an object derived from RefBase: promote() gives a strong one while the object lives. */
template <typename T> class wp {
public:
    wp() noexcept = default;
    wp(std::nullptr_t) noexcept {}
    wp(T* object) : wp(object, object == nullptr ? nullptr : object->createWeak(nullptr)) {}
    wp(const sp<T>& strong) : wp(strong.get()) {}
    template <typename U> wp(const sp<U>& strong) : wp(static_cast<T*>(strong.get())) {}
    wp(const wp& other) : wp(other.mObject, other.retained()) {}
    wp(wp&& other) noexcept
        : mObject(std::exchange(other.mObject, nullptr)), mRefs(std::exchange(other.mRefs, nullptr)) {}
    template <typename U> wp(const wp<U>& other) : wp(other.mObject, other.retained()) {}

    ~wp() {
        if (mRefs != nullptr) {
            mRefs->decWeak(this);
        }
    }

    wp& operator=(wp other) noexcept {
        std::swap(mObject, other.mObject);
        std::swap(mRefs, other.mRefs);
        return *this;
    }

    /** A strong reference, null when the object is gone. */
    sp<T> promote() const {
        if (mRefs == nullptr || !mRefs->attemptIncStrong(this)) {
            return nullptr;
        }
        return sp<T>::adopt(mObject);
    }

    void clear() { *this = wp(); }

    /** The address, for comparing only: the object may be gone. */
    T* unsafe_get() const { return mObject; }

    template <typename U> bool operator==(const wp<U>& other) const { return mRefs == other.mRefs; }
    template <typename U> bool operator!=(const wp<U>& other) const { return mRefs != other.mRefs; }
    template <typename U> bool operator<(const wp<U>& other) const {
        return std::less<const void*>()(mRefs, other.mRefs);
    }

private:
    template <typename U> friend class wp;

    wp(T* object, RefBase::weakref_type* refs) : mObject(object), mRefs(refs) {}

    RefBase::weakref_type* retained() const {
        if (mRefs != nullptr) {
            mRefs->incWeak(this);
        }
        return mRefs;
    }

    T* mObject = nullptr;
    RefBase::weakref_type* mRefs = nullptr;
};

} // namespace android
