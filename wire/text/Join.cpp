#include "wire/text/Join.h"

#include <cstddef>

namespace kelutv::wire {

std::string joined(const std::vector<std::string>& parts, const std::string& separator) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        text += (i == 0 ? "" : separator) + parts[i];
    }
    return text;
}

} // namespace kelutv::wire
