#include "simulator/television/Teletext.h"

#include "wire/events/Payload.h"

#include <kelutv/events.h>

#include <cstddef>
#include <cstdint>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kRowLength = 40;
constexpr unsigned int kMagazine = 1;

/** Rows 0 to 3 of the page; row 0 has eight columns fewer, which hold the page number and its control bits. */
constexpr const char* kRows[] = {
    "  P100  KELUTV    Sat 01 Jan   ",
    "",
    "  This page comes from the simulator.",
    "  Blocks of type 1 are teletext packets.",
};

/** Hamming 8/4: any single wrong bit can be corrected. */
char hamming84(unsigned int nibble) {
    constexpr unsigned char kCodes[] = {0x15, 0x02, 0x49, 0x5E, 0x64, 0x73, 0x38, 0x2F,
                                        0xD0, 0xC7, 0x8C, 0x9B, 0xA1, 0xB6, 0xFD, 0xEA};
    return static_cast<char>(kCodes[nibble & 0xF]);
}

/** Seven bits with an eighth that makes the number of ones odd. */
char oddParity(char character) {
    auto bits = static_cast<unsigned char>(character & 0x7F);
    unsigned int ones = 0;
    for (unsigned int rest = bits; rest != 0; rest >>= 1) {
        ones += rest & 1;
    }
    return static_cast<char>(ones % 2 == 1 ? bits : bits | 0x80);
}

std::string packetAddress(unsigned int row) { return {hamming84(kMagazine | (row & 1) << 3), hamming84(row >> 1)}; }

std::string textOf(const char* row, std::size_t columns) {
    std::string text = row;
    text.resize(columns, ' ');
    for (char& character : text) {
        character = oddParity(character);
    }
    return text;
}

std::string packet(unsigned int row) {
    // Page 00 of its magazine, no subpage, no control bits.
    const std::string controls(row == 0 ? 8 : 0, hamming84(0));
    return packetAddress(row) + controls + textOf(kRows[row], kRowLength - controls.size());
}

/** The length as the client reads it, then the data. */
std::string blockOf(const std::string& data) {
    return wire::payloadOf({static_cast<std::int32_t>(data.size())}) + data;
}

} // namespace

std::vector<std::string> demoPage() {
    std::vector<std::string> packets;
    for (unsigned int row = 0; row < sizeof(kRows) / sizeof(kRows[0]); ++row) {
        packets.push_back(packet(row));
    }
    return packets;
}

bool Teletext::deliver(unsigned int type, const std::string& data) {
    if (delivers()) {
        const std::string text = "VBI block of type " + std::to_string(type) + ", " + std::to_string(data.size()) +
                                 (data.size() == 1 ? " byte" : " bytes");
        mEvents.push_back({KELU_EM_MODE_TTX + type, blockOf(data), text});
    }
    return delivers();
}

void Teletext::change(bool& flag, bool on) {
    const bool before = delivers();
    flag = on;
    if (!before && delivers()) {
        for (const std::string& data : demoPage()) {
            deliver(kTeletextPacket, data);
        }
    }
}

} // namespace kelutv::simulator
