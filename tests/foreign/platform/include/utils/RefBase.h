#pragma once

#include <foreign/export.h>
#include <utils/StrongPointer.h>

#include <cstdint>
#include <utility>

namespace android {

/** Base of every counted object: it goes with its last strong reference. */
class FOREIGN_API RefBase {
public:
    /** What is left of an object for its weak references. */
    struct Counts;

    RefBase(const RefBase&) = delete;
    RefBase& operator=(const RefBase&) = delete;

    /** First in the table of virtual functions, where other platforms have none. */
    virtual const char* kind() const;

    void incStrong(const void* holder) const;
    void decStrong(const void* holder) const;
    Counts* incWeak() const;

    static Counts* incWeak(Counts* counts);
    static void decWeak(Counts* counts);
    /** Takes a strong reference if there is one. */
    static bool attemptIncStrong(Counts* counts);

protected:
    RefBase();
    virtual ~RefBase();

    virtual void onFirstRef();
    virtual bool onIncStrongAttempted(const void* holder);
    virtual void onLastStrongRef(const void* holder);

private:
    std::uint64_t mBirth;
    Counts* const mCounts;
};

/** Weak reference to an object derived from RefBase. */
template <typename T> class wp {
public:
    wp() = default;
    wp(T* object) : mObject(object), mCounts(object == nullptr ? nullptr : object->incWeak()) {}
    wp(const sp<T>& object) : wp(object.get()) {}
    template <typename U> wp(const sp<U>& object) : wp(static_cast<T*>(object.get())) {}
    wp(const wp& other) : mObject(other.mObject), mCounts(RefBase::incWeak(other.mCounts)) {}
    ~wp() { RefBase::decWeak(mCounts); }

    wp& operator=(wp other) {
        std::swap(mObject, other.mObject);
        std::swap(mCounts, other.mCounts);
        return *this;
    }

    sp<T> promote() const {
        sp<T> object;
        if (RefBase::attemptIncStrong(mCounts)) {
            object = sp<T>(mObject);
            mObject->decStrong(this);
        }
        return object;
    }

    bool operator==(const wp& other) const { return mCounts == other.mCounts; }

private:
    T* mObject = nullptr;
    RefBase::Counts* mCounts = nullptr;
};

} // namespace android
