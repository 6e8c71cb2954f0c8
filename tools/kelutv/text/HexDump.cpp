#include "tools/kelutv/text/HexDump.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace kelutv::tool {

namespace {

constexpr std::size_t kWidth = 16;

std::string addressColumn(std::size_t address) {
    char text[24];
    std::snprintf(text, sizeof(text), "%08zx", address);
    return text;
}

std::string hexColumns(const Bytes& row) {
    std::string text;
    for (std::size_t i = 0; i < kWidth; ++i) {
        text += i % (kWidth / 2) == 0 ? "  " : " ";
        text += i < row.size() ? hexOf({row[i]}) : "  ";
    }
    return text;
}

std::string characters(const Bytes& row) {
    std::string text;
    for (const std::uint8_t byte : row) {
        text += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
    }
    return text;
}

constexpr const char* kBlanks = " \t\r";

std::string withoutFirstWord(const std::string& line) {
    const std::size_t first = line.find_first_not_of(kBlanks);
    const std::size_t second = line.find_first_not_of(kBlanks, line.find_first_of(kBlanks, first));
    return second != std::string::npos ? line.substr(second) : "";
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

std::vector<std::string> hexDump(const Bytes& bytes, int address, bool squeezed) {
    std::vector<std::string> lines;
    Bytes before;
    for (std::size_t at = 0; at < bytes.size(); at += kWidth) {
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        const Bytes row(begin, begin + static_cast<std::ptrdiff_t>(std::min(kWidth, bytes.size() - at)));
        if (!squeezed || row != before) {
            lines.push_back(addressColumn(static_cast<std::size_t>(address) + at) + hexColumns(row) + "  |" +
                            characters(row) + '|');
        } else if (lines.back() != "*") {
            lines.emplace_back("*");
        }
        before = row;
    }
    lines.push_back(addressColumn(static_cast<std::size_t>(address) + bytes.size()));
    return lines;
}

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

} // namespace kelutv::tool
