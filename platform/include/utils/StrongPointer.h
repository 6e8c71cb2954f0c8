#pragma once

#include <cstddef>
#include <functional>
#include <utility>

namespace android {

/**
 * Strong reference to an object derived from RefBase: the object lives while one exists.
 *
 * One `sp` object belongs to one thread at a time; different `sp` objects to one target may be used from any threads.
 */
template <typename T> class sp {
public:
    constexpr sp() noexcept = default;
    constexpr sp(std::nullptr_t) noexcept {}

    sp(T* object) : mPointer(object) { acquire(); }
    sp(const sp& other) : mPointer(other.mPointer) { acquire(); }
    sp(sp&& other) noexcept : mPointer(std::exchange(other.mPointer, nullptr)) {}

    template <typename U> sp(U* object) : mPointer(object) { acquire(); }
    template <typename U> sp(const sp<U>& other) : mPointer(other.get()) { acquire(); }

    // The pointer is left as it was: a thread that outlives a static holder at process exit still reads a whole value.
    ~sp() { release(mPointer); }

    sp& operator=(sp other) noexcept {
        std::swap(mPointer, other.mPointer);
        return *this;
    }

    /** Drops the reference; the pointer is null afterwards. */
    void clear() { release(std::exchange(mPointer, nullptr)); }

    T& operator*() const { return *mPointer; }
    T* operator->() const { return mPointer; }
    T* get() const { return mPointer; }
    explicit operator bool() const { return mPointer != nullptr; }

private:
    template <typename U> friend class wp;

    /** Takes over a reference that the caller already holds. */
    static sp adopt(T* object) {
        sp adopted;
        adopted.mPointer = object;
        return adopted;
    }

    void acquire() const {
        if (mPointer != nullptr) {
            mPointer->incStrong(this);
        }
    }
    void release(T* object) const {
        if (object != nullptr) {
            object->decStrong(this);
        }
    }

    T* mPointer = nullptr;
};

template <typename T, typename U> bool operator==(const sp<T>& a, const sp<U>& b) { return a.get() == b.get(); }
template <typename T, typename U> bool operator!=(const sp<T>& a, const sp<U>& b) { return a.get() != b.get(); }
template <typename T, typename U> bool operator<(const sp<T>& a, const sp<U>& b) {
    return std::less<const void*>()(a.get(), b.get());
}
template <typename T, typename U> bool operator==(const sp<T>& a, const U* b) { return a.get() == b; }
template <typename T, typename U> bool operator!=(const sp<T>& a, const U* b) { return a.get() != b; }
template <typename T> bool operator==(const sp<T>& a, std::nullptr_t) { return a.get() == nullptr; }
template <typename T> bool operator!=(const sp<T>& a, std::nullptr_t) { return a.get() != nullptr; }
template <typename T> bool operator==(std::nullptr_t, const sp<T>& b) { return b.get() == nullptr; }
template <typename T> bool operator!=(std::nullptr_t, const sp<T>& b) { return b.get() != nullptr; }

} // namespace android
