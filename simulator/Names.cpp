#include "Names.h"

#include <algorithm>

namespace simulator {

std::string nameOfValue(std::int32_t value, const EnumerationNames* names) {
    if (names == nullptr) {
        return "";
    }
    const auto* const found =
        std::find_if(names->begin(), names->end(), [value](const EnumeratorName& row) { return row.value == value; });
    return found != names->end() ? found->name : "";
}

} // namespace simulator
