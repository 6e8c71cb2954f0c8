#pragma once

#include "Table.h"

#include <vector>

namespace simulator {

/** What one key, or one value, of a slot is. */
struct SlotPart {
    Kind kind;
    /** What it can be by name; maybe none. */
    EnumerationNames names;
};

/** What a slot looks like to the requests that set it, or to those that read it if there are no others. */
struct SlotForm {
    std::vector<SlotPart> keys;
    std::vector<SlotPart> values;
    /** Any number of values; else as many as there are parts. */
    bool isOpen = false;
};

SlotForm formOf(const StateSlot& slot);

/** The values with zeros and empty texts for those that are missing, as a client reads them. */
Scalars completed(const SlotForm& form, Scalars values);

} // namespace simulator
