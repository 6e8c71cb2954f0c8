#pragma once

#include "wire/Interface.h"

#include <cstddef>
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

/** Whether clients read the same: what was never set has fewer values than what is set to zero. */
bool isReadAlike(const StateKey& key, const Values& before, const Values& after);

/** How much a television keeps with these: the bytes of texts, 16 for each number and text, and 128 in all. */
std::size_t keptSize(const Values& indexes, const Values& values);

/** The values with zeros and empty texts for those that are missing, as a client reads them. */
Values completed(const StateForm& form, Values values);

} // namespace kelutv::wire
