#pragma once

#include <utility>

namespace android {

/** Strong reference to an object derived from RefBase. */
template <typename T> class sp {
public:
    sp() = default;
    sp(T* object) : mObject(object) { hold(); }
    sp(const sp& other) : mObject(other.mObject) { hold(); }
    sp(sp&& other) noexcept : mObject(std::exchange(other.mObject, nullptr)) {}
    template <typename U> sp(U* object) : mObject(object) { hold(); }
    template <typename U> sp(const sp<U>& other) : mObject(other.get()) { hold(); }
    ~sp() { clear(); }

    sp& operator=(sp other) noexcept {
        std::swap(mObject, other.mObject);
        return *this;
    }

    void clear() {
        if (T* const object = std::exchange(mObject, nullptr); object != nullptr) {
            object->decStrong(this);
        }
    }

    T* get() const { return mObject; }
    T& operator*() const { return *mObject; }
    T* operator->() const { return mObject; }

    bool operator==(const T* object) const { return mObject == object; }
    bool operator!=(const T* object) const { return mObject != object; }
    template <typename U> bool operator==(const sp<U>& other) const { return mObject == other.get(); }
    template <typename U> bool operator!=(const sp<U>& other) const { return mObject != other.get(); }

private:
    void hold() const {
        if (mObject != nullptr) {
            mObject->incStrong(this);
        }
    }

    T* mObject = nullptr;
};

} // namespace android
