#include "simulator/text/Join.h"

#include "wire/text/Join.h"

namespace kelutv::simulator {

std::string joinedWords(const std::vector<std::string>& words) { return wire::joined(words, " "); }

std::string joinedLines(const std::vector<std::string>& lines) { return wire::joined(lines, "\n"); }

std::string listed(const std::vector<std::string>& names) {
    std::string result;
    for (std::size_t i = 0; i < names.size(); ++i) {
        result += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    }
    return result;
}

} // namespace kelutv::simulator
