#include "ParcelObjects.h"

#include "BpBinder.h"
#include "LocalObjects.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace android {

namespace {

// The handler runs with the caller's priority, whatever that is.
constexpr uint32_t kLowestPriority = 0x7F;

} // namespace

ParcelObjects::~ParcelObjects() {
    for (const uint64_t number : mLocal) {
        LocalObjects::instance().release(number);
    }
}

ParcelObjects& ParcelObjects::in(Parcel* parcel) {
    if (parcel->mObjects == nullptr) {
        parcel->mObjects = std::make_unique<ParcelObjects>();
    }
    return *parcel->mObjects;
}

status_t ParcelObjects::write(Parcel* parcel, const sp<IBinder>& object) {
    flat_binder_object flat{};
    flat.hdr.type = BINDER_TYPE_BINDER;
    if (object == nullptr) {
        return parcel->write(&flat, sizeof(flat));
    }
    flat.flags = kLowestPriority;
    ParcelObjects& objects = in(parcel);
    if (BBinder* const local = object->localBinder(); local != nullptr) {
        objects.mLocal.push_back(LocalObjects::instance().hold(local));
        flat.binder = objects.mLocal.back();
        flat.cookie = flat.binder;
    } else {
        BpBinder* const remote = object->remoteBinder();
        const std::optional<uint32_t> handle = remote == nullptr ? std::nullopt : remote->object().handle();
        if (!handle) {
            return BAD_VALUE;
        }
        flat.hdr.type = BINDER_TYPE_HANDLE;
        flat.handle = *handle;
        objects.mRemote.push_back(object);
    }
    objects.mOffsets.push_back(parcel->dataPosition());
    return parcel->write(&flat, sizeof(flat));
}

sp<IBinder> ParcelObjects::read(const Parcel& parcel, const MakeProxy& makeProxy) {
    const std::vector<binder_size_t>* const offsets = offsetsOf(parcel);
    if (offsets == nullptr || std::find(offsets->begin(), offsets->end(), parcel.dataPosition()) == offsets->end()) {
        return nullptr;
    }
    flat_binder_object flat{};
    if (parcel.read(&flat, sizeof(flat)) != NO_ERROR) {
        return nullptr;
    }
    switch (flat.hdr.type) {
    case BINDER_TYPE_HANDLE:
        return makeProxy(flat.handle);
    case BINDER_TYPE_BINDER:
        return LocalObjects::instance().find(flat.cookie);
    default:
        return nullptr;
    }
}

void ParcelObjects::note(Parcel* parcel, const uint8_t* offsets, size_t length) {
    if (length < sizeof(binder_size_t)) {
        return;
    }
    std::vector<binder_size_t>& noted = in(parcel).mOffsets;
    noted.resize(length / sizeof(binder_size_t));
    std::memcpy(noted.data(), offsets, noted.size() * sizeof(binder_size_t));
}

const std::vector<binder_size_t>* ParcelObjects::offsetsOf(const Parcel& parcel) {
    return parcel.mObjects == nullptr ? nullptr : &parcel.mObjects->mOffsets;
}

} // namespace android
