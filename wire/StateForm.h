#pragma once

#include "wire/Interface.h"

#include <vector>

namespace kelutv::wire {

/** What one key, or one value, of a slot is. */
struct StatePart {
    Encoding encoding;
    /** What it can be by name; null when it has no names. */
    const Enumeration* names;
};

/** What a slot looks like to the requests that set it, or to those that read it if there are no others. */
struct StateForm {
    std::vector<StatePart> keys;
    std::vector<StatePart> values;
    /** Any number of values; else as many as there are parts. */
    bool isOpen = false;
};

StateForm formOf(const StateSlot& slot);

/** The values with zeros and empty texts for those that are missing, as a client reads them. */
Values completed(const StateForm& form, Values values);

} // namespace kelutv::wire
