#include "wire/text/Quote.h"

#include "wire/text/Printable.h"

namespace kelutv::wire {

std::string inQuotes(const std::string& text) {
    std::string result = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = lengthOfPrintable(text, at);
        if (text[at] == '"' || text[at] == '\\') {
            result += '\\';
        }
        result += length > 0 ? text.substr(at, length) : escapedByte(text, at);
        at += length > 0 ? length : 1;
    }
    return result + '"';
}

} // namespace kelutv::wire
