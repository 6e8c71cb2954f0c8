#include "torture/Size.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace kelutv::test {

Size sizeOfTorture() {
    const char* const word = std::getenv("KELUTV_TORTURE");
    const std::string size = word != nullptr ? word : "";
    if (size.empty()) {
        return Size::Sample;
    }
    if (size != "check" && size != "long") {
        throw std::invalid_argument("KELUTV_TORTURE is '" + size + "' but must be check or long");
    }
    return size == "check" ? Size::Check : Size::Long;
}

} // namespace kelutv::test
