#pragma once

#include "wire/Interface.h"
#include "wire/Value.h"
#include "wire/codec/ByteReader.h"

#include <cstddef>
#include <optional>

namespace kelutv::wire {

/**
 * The next number, text or block; `count` is the number of elements of a block, or of plain numbers one
 * after the other. Empty, with the position where it was, when they are not all there.
 */
std::optional<Values> readValues(ByteReader& data, Encoding kind, std::size_t count);

} // namespace kelutv::wire
