#include "recording/Origin.h"

#include <binder/Parcel.h>
#include <utils/String16.h>

#include <cstdint>

namespace kelutv::recording {

Bytes tokenOfPlatform() {
    android::Parcel parcel;
    parcel.writeInterfaceToken(android::String16("android.ITVBaseService"));
    return {parcel.data(), parcel.data() + parcel.dataSize()};
}

bool isLittleEndian() {
    const std::uint16_t one = 1;
    return *reinterpret_cast<const std::uint8_t*>(&one) == 1;
}

bool isInOwnOrder(const Header& header) { return header.isLittleEndian == isLittleEndian(); }

} // namespace kelutv::recording
