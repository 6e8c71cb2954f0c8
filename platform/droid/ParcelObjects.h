#pragma once

#include <binder/Binder.h>
#include <binder/Parcel.h>

#include <linux/android/binder.h>

#include <functional>
#include <memory>
#include <vector>

namespace android {

/** The binders inside a parcel that goes through the kernel's driver: where they stand, and what keeps them alive. */
class ParcelObjects {
public:
    /** Appends an object, null as well; BAD_VALUE for one that this transport cannot name. */
    static status_t write(Parcel* parcel, const sp<IBinder>& object);
    /** Makes the proxy of another process's object. */
    using MakeProxy = std::function<sp<IBinder>(uint32_t handle)>;

    /** The object at the parcel's position; null where none stands. */
    static sp<IBinder> read(const Parcel& parcel, const MakeProxy& makeProxy);

    /** Notes where the objects of a received parcel stand, as the driver says. */
    static void note(Parcel* parcel, const uint8_t* offsets, size_t length);
    /** Where the parcel's objects stand; null when it has none. */
    static const std::vector<binder_size_t>* offsetsOf(const Parcel& parcel);

    ParcelObjects() = default;
    ~ParcelObjects();
    ParcelObjects(const ParcelObjects&) = delete;
    ParcelObjects& operator=(const ParcelObjects&) = delete;

private:
    static ParcelObjects& in(Parcel* parcel);

    std::vector<binder_size_t> mOffsets;
    std::vector<uint64_t> mLocal;
    std::vector<sp<IBinder>> mRemote;
};

} // namespace android
