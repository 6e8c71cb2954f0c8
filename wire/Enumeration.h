#pragma once

#include "wire/Rows.h"

#include <cstdint>
#include <string_view>

namespace kelutv::wire {

struct Enumerator {
    const char* name;
    std::int32_t value;
    /** Ends the enumeration, or a range inside it, and is no value of it. */
    bool isEndMarker = false;
};

/** One enumeration of the public headers. */
struct Enumeration {
    const char* name;
    Rows<Enumerator> values;
};

/** Every enumeration of the public headers that has enumerators, by ascending name. */
Rows<Enumeration> allEnumerations();

/** Every enumerator of the public headers, by ascending name. */
Rows<Enumerator> allEnumerators();

/** Null when there is none. */
const Enumeration* findEnumeration(std::string_view name);
const Enumerator* findEnumerator(std::string_view name);

} // namespace kelutv::wire
