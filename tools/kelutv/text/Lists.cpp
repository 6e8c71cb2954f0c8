#include "tools/kelutv/text/Lists.h"

#include <cstddef>

namespace kelutv::tool {

namespace {

std::string stripped(const std::string& text) {
    constexpr const char* kSpaces = " \t";
    const std::size_t first = text.find_first_not_of(kSpaces);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kSpaces) - first + 1);
}

} // namespace

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    if (stripped(text).empty()) {
        return parts;
    }
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + 1) {
        end = text.find(separator, start);
        parts.push_back(stripped(text.substr(start, end == std::string::npos ? end : end - start)));
    }
    return parts;
}

std::string counted(std::size_t count, const std::string& one, const std::string& several) {
    return std::to_string(count) + ' ' + (count == 1 ? one : several.empty() ? one + 's' : several);
}

} // namespace kelutv::tool
