#include "wire/text/Shown.h"

#include "wire/text/Printable.h"

namespace kelutv::wire {

std::string shown(std::string_view text, std::size_t most) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = lengthOfPrintable(text, at);
        const std::size_t taken = length > 0 ? length : 1;
        if (at + taken > most) {
            return result + "...";
        }
        result += length > 0 ? std::string(text.substr(at, length)) : escapedByte(text, at);
        at += taken;
    }
    return result;
}

} // namespace kelutv::wire
