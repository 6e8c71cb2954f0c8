#pragma once

#include <binder/Parcel.h>

namespace android {

/** A request as it came in: the bytes stay in the transport's buffer for the time of the call. */
class ReceivedParcel {
public:
    ReceivedParcel(const uint8_t* bytes, size_t length) {
        // Read-only use: a parcel with no capacity of its own copies before it writes.
        mParcel.mData = const_cast<uint8_t*>(bytes);
        mParcel.mSize = length;
        mParcel.mCapacity = 0;
        mParcel.mBorrowed = true;
    }

    const Parcel& parcel() const { return mParcel; }

private:
    Parcel mParcel;
};

} // namespace android
