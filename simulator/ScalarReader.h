#pragma once

#include "Scalar.h"
#include "Table.h"

#include <binder/Parcel.h>

#include <cstddef>
#include <optional>

namespace simulator {

/**
 * The next number, text or block of a parcel; `count` is the number of elements of a block, or of plain numbers one
 * after the other. Empty, with the position where it was, when they are not all there.
 */
std::optional<Scalars> readScalars(const android::Parcel& data, Kind kind, std::size_t count);

} // namespace simulator
