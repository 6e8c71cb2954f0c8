#include "tools/kelutv/text/HexDump.h"

#include "tools/kelutv/text/Words.h"

#include <algorithm>
#include <cstdio>

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

} // namespace kelutv::tool
