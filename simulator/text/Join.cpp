#include "simulator/text/Join.h"

namespace kelutv::simulator {

namespace {

std::string joined(const std::vector<std::string>& parts, const char* separator) {
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : separator) + part;
    }
    return text;
}

} // namespace

std::string joinedWords(const std::vector<std::string>& words) { return joined(words, " "); }

std::string joinedLines(const std::vector<std::string>& lines) { return joined(lines, "\n"); }

std::string listed(const std::vector<std::string>& names) {
    std::string result;
    for (std::size_t i = 0; i < names.size(); ++i) {
        result += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    }
    return result;
}

} // namespace kelutv::simulator
