#pragma once

#include "support/Wire.h"

#include <binder/Parcel.h>

namespace kelutv::test {

inline Bytes bytesOf(const android::Parcel& parcel) { return Bytes(parcel.data(), parcel.data() + parcel.dataSize()); }

} // namespace kelutv::test
