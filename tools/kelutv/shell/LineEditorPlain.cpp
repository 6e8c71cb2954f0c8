#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/shell/LineEditor.h"

#include <iostream>

namespace kelutv::tool {

void startEditing(const std::vector<std::string>&, const Completer&) {}

std::optional<std::string> readLine(const std::string& prompt) {
    writeData(prompt);
    std::string line;
    return std::getline(std::cin, line) ? std::optional<std::string>(line) : std::nullopt;
}

void rememberLine(const std::string&) {}

std::string lineEditingText() { return "without line editing"; }

} // namespace kelutv::tool
