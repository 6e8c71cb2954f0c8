#include "wire/text/EnumeratorNames.h"

#include <algorithm>

namespace kelutv::wire {

std::string nameOfValue(std::int32_t value, const Enumeration* names) {
    if (names == nullptr) {
        return "";
    }
    const auto* const found = std::find_if(names->values.begin(), names->values.end(),
                                           [value](const Enumerator& row) { return row.value == value; });
    return found != names->values.end() ? found->name : "";
}

} // namespace kelutv::wire
