#pragma once

#include "wire/Interface.h"
#include "wire/Value.h"

#include <binder/Parcel.h>

#include <cstddef>
#include <optional>

namespace kelutv::wire {

/**
 * The next number, text or block of a parcel; `count` is the number of elements of a block, or of plain numbers one
 * after the other. Empty, with the position where it was, when they are not all there.
 */
std::optional<Values> readValues(const android::Parcel& data, Encoding kind, std::size_t count);

} // namespace kelutv::wire
