#include "wire/text/Quote.h"

#include <cstdio>

namespace kelutv::wire {

std::string inQuotes(const std::string& text) {
    std::string result = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            result += {'\\', character};
        } else if (byte < 0x20 || byte == 0x7F) {
            char code[8];
            std::snprintf(code, sizeof(code), "\\x%02x", byte);
            result += code;
        } else {
            result += character;
        }
    }
    return result + '"';
}

} // namespace kelutv::wire
