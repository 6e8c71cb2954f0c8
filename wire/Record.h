#pragma once

#include "wire/Enumeration.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace kelutv::wire {

/** What one value is in memory. */
enum class ScalarType { Int, Unsigned, Bool, Double, Char, Byte };

/** What is known of the values of a number; ends of a range belong to it. */
struct Range {
    std::optional<std::int32_t> least;
    std::optional<std::int32_t> greatest;
    std::optional<double> step;
    std::optional<double> initial;
    /** Null when it is not known, or there is none. */
    const char* unit;

    bool isBounded() const { return least.has_value() && greatest.has_value(); }
};

/** A field of a record: one value or, with a `count`, an array; an array of Char is a text. */
struct Field {
    /** `gain`, `cropRect.leftOffset`, `stEqParam[3].intGain`. */
    const char* name;
    ScalarType scalar;
    /** Null for a number without names. */
    const Enumeration* names;
    /** Null where nothing is known. */
    const Range* range;
    std::size_t offset;
    std::size_t count;
};

/** One record of the public headers, or of the platform's. */
struct Record {
    const char* name;
    std::size_t size;
    Rows<Field> fields;
};

/** Every record, by ascending name. */
Rows<Record> allRecords();

} // namespace kelutv::wire
