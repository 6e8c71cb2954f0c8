#pragma once

#include <binder/Parcel.h>

namespace android {

/** A parcel as it came in: the bytes stay in the transport's buffer. */
class ReceivedParcel {
public:
    using Release = Parcel::Release;

    /** A request whose buffer stays for the time of the call. */
    ReceivedParcel(const uint8_t* bytes, size_t length) { fill(&mParcel, bytes, length, keep, nullptr); }
    ~ReceivedParcel() {
        if (mParcel.mRelease == keep) {
            mParcel.mData = mParcel.mInline;
        }
    }
    ReceivedParcel(const ReceivedParcel&) = delete;
    ReceivedParcel& operator=(const ReceivedParcel&) = delete;

    /** Makes `parcel` stand for a buffer, which goes back by `release` when the parcel needs it no more. */
    static void adopt(Parcel* parcel, const uint8_t* bytes, size_t length, Release release, void* owner) {
        parcel->freeData();
        fill(parcel, bytes, length, release, owner);
    }

    Parcel& parcel() { return mParcel; }

private:
    static void keep(void*, const uint8_t*) {}

    static void fill(Parcel* parcel, const uint8_t* bytes, size_t length, Release release, void* owner) {
        // Read-only use: a parcel with no capacity of its own copies before it writes.
        parcel->mData = const_cast<uint8_t*>(bytes);
        parcel->mSize = length;
        parcel->mCapacity = 0;
        parcel->mRelease = release;
        parcel->mOwner = owner;
    }

    Parcel mParcel;
};

} // namespace android
