#include "tools/kelutv/text/HexInput.h"

#include "tools/kelutv/text/Words.h"

#include <iostream>
#include <iterator>
#include <sstream>

namespace kelutv::tool {

namespace {

constexpr const char* kBlanks = " \t\r";

std::string withoutFirstWord(const std::string& line) {
    const std::size_t begin = line.find_first_not_of(kBlanks);
    const std::size_t end = line.find_first_of(kBlanks, begin);
    return end != std::string::npos ? line.substr(line.find_first_not_of(kBlanks, end)) : "";
}

/** The bytes of one line of a dump, or of a line that holds nothing else. */
std::string dataOf(const std::string& line) {
    if (const std::size_t column = line.find('|'); column != std::string::npos) {
        return withoutFirstWord(line.substr(0, column));
    }
    const std::size_t colon = line.find(':');
    if (colon == std::string::npos) {
        return line;
    }
    const std::string data = withoutFirstWord(line);
    return data.substr(0, data.find("  "));
}

/** The line behind the last one with columns holds nothing but the offset of the end. */
bool isLastOffset(const std::string& line) {
    return line.size() == 8 && line.find_first_of("|: *") == std::string::npos;
}

std::string withoutPrefix(const std::string& word) {
    return word.compare(0, 2, "0x") == 0 || word.compare(0, 2, "0X") == 0 ? word.substr(2) : word;
}

} // namespace

Bytes bytesOfDump(const std::string& text) {
    Bytes bytes;
    std::istringstream lines(text);
    bool hasColumns = false;
    for (std::string line; std::getline(lines, line);) {
        if (hasColumns && isLastOffset(line)) {
            continue;
        }
        hasColumns = line.find('|') != std::string::npos;
        std::istringstream words(dataOf(line));
        for (std::string word; words >> word;) {
            const Bytes more = bytesOfHex(withoutPrefix(word));
            bytes.insert(bytes.end(), more.begin(), more.end());
        }
    }
    return bytes;
}

std::string spacedHexOf(const Bytes& bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += (text.empty() ? "" : " ") + hexOf({byte});
    }
    return text;
}

Bytes bytesOfInput(const std::string& path) {
    return path == "-" ? Bytes{std::istreambuf_iterator<char>(std::cin), {}} : bytesOfFile(path);
}

std::string textOfArgument(const std::string& argument) {
    if (argument != "-" && argument.compare(0, 1, "@") != 0) {
        return argument;
    }
    const Bytes content = bytesOfInput(argument == "-" ? argument : argument.substr(1));
    return {content.begin(), content.end()};
}

} // namespace kelutv::tool
