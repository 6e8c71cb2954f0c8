#pragma once

#include "tools/kelutv/output/Output.h"
#include "wire/Function.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace kelutv::tool {

/** What output memory is filled with before a call, so that it shows what was written. */
constexpr std::uint8_t kUntouched = 0x5A;

/** What one value of a field may be. */
wire::ValueType typeOf(const wire::Field& field);

std::size_t sizeOf(wire::ScalarType scalar);

/** Puts the value that a text means where it belongs in memory. @throws UsageError when it is not allowed */
void writeScalar(const wire::ValueType& type, const std::string& text, std::uint8_t* to);

/** The value in memory. */
Json readScalar(wire::ScalarType scalar, const std::uint8_t* from);

/** Whether nothing was written over the fill. */
bool isUntouched(const std::uint8_t* from, std::size_t size);

} // namespace kelutv::tool
