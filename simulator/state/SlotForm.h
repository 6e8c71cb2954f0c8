#pragma once

#include "wire/Interface.h"

#include <vector>

namespace kelutv::simulator {

/** What one key, or one value, of a slot is. */
struct SlotPart {
    wire::Encoding encoding;
    /** What it can be by name; null when it has no names. */
    const wire::Enumeration* names;
};

/** What a slot looks like to the requests that set it, or to those that read it if there are no others. */
struct SlotForm {
    std::vector<SlotPart> keys;
    std::vector<SlotPart> values;
    /** Any number of values; else as many as there are parts. */
    bool isOpen = false;
};

SlotForm formOf(const wire::StateSlot& slot);

/** The values with zeros and empty texts for those that are missing, as a client reads them. */
wire::Values completed(const SlotForm& form, wire::Values values);

} // namespace kelutv::simulator
