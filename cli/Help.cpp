#include "cli/Help.h"

#include <cstddef>
#include <sstream>

namespace kelutv::cli {

namespace {

std::string trimmed(const std::string& text) {
    constexpr char kBlank[] = " \t\n";
    const std::size_t begin = text.find_first_not_of(kBlank);
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(kBlank) - begin + 1);
}

std::string indented(const std::string& lines) {
    std::istringstream source(lines);
    std::string text;
    for (std::string line; std::getline(source, line);) {
        text += line.empty() ? "\n" : "  " + trimmed(line) + '\n';
    }
    return text;
}

} // namespace

Description::Description(const std::string& text) {
    const std::size_t marker = text.find("\n\nExample");
    if (marker != std::string::npos) {
        examples = trimmed(text.substr(text.find(':', marker) + 1));
    }
    const std::string explanation = trimmed(text.substr(0, marker));
    const std::size_t end = explanation.find('\n');
    brief = explanation.substr(0, end);
    if (end != std::string::npos) {
        details = trimmed(explanation.substr(end));
    }
}

std::string Description::beginning() const { return examples.empty() ? "" : "Examples:\n" + indented(examples) + '\n'; }

std::string Description::explanation() const { return brief + '\n' + (details.empty() ? "" : details + '\n'); }

} // namespace kelutv::cli
