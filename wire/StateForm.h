#pragma once

#include "wire/Interface.h"

#include <vector>

namespace kelutv::wire {

/** What one index, or one value, of a state is. */
struct StatePart {
    Encoding encoding;
    /** What it can be by name; null when it has no names. */
    const Enumeration* names;
};

/** What a state looks like to the requests that set it, or to those that read it if there are no others. */
struct StateForm {
    std::vector<StatePart> indexes;
    std::vector<StatePart> values;
    /** Any number of values; else as many as there are parts. */
    bool isOpen = false;
};

StateForm formOf(const StateKey& key);

/** The values with zeros and empty texts for those that are missing, as a client reads them. */
Values completed(const StateForm& form, Values values);

} // namespace kelutv::wire
