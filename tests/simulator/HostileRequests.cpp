#include "simulator/HostileRequests.h"

#include <array>
#include <cstdint>
#include <utility>

namespace kelutv::test {

namespace {

constexpr std::array<int, 30> kCommands{0x800E, 0x800F, 0x8010, 0x8011, 0x8013, 0x8015, 0x8016, 0x5018, 0x501C, 0xD005,
                                        0x2008, 0x2009, 0x200A, 0x2020, 0x203A, 0x2053, 0x2054, 0x2056, 0x2057, 0x2059,
                                        0x205A, 0xE001, 0x1002, 0x1003, 0x3002, 0x300E, 0x7000, 0x7001, 0x700A, 0x7018};

} // namespace

Bytes HostileRequests::next() {
    switch (below(4)) {
    case 0:
        return noise(static_cast<std::size_t>(below(200)));
    case 1:
        return withTail(Wire::request(below(0x20000)), 64);
    case 2:
        return damaged(withTail(Wire::request(command()), 16));
    default:
        return withTail(Wire::request(command()), 200);
    }
}

Bytes HostileRequests::nextPacket() {
    const Bytes request = next();
    Bytes packet;
    // Content size, code, flags, status and number.
    for (const std::size_t word : {request.size(), std::size_t{1}, std::size_t{0}, std::size_t{0}, std::size_t{1}}) {
        for (int byte = 0; byte < 4; ++byte) {
            packet.push_back(static_cast<std::uint8_t>(word >> (8 * byte)));
        }
    }
    packet.insert(packet.end(), request.begin(), request.end());
    return below(2) == 0 ? packet : damaged(std::move(packet));
}

int HostileRequests::command() {
    return kCommands[static_cast<std::size_t>(below(static_cast<int>(kCommands.size())))];
}

Bytes HostileRequests::noise(std::size_t length) {
    Bytes bytes(length);
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(below(256));
    }
    return bytes;
}

Bytes HostileRequests::withTail(Wire request, int longest) {
    const Bytes tail = noise(static_cast<std::size_t>(below(longest)));
    return request.raw(tail.data(), tail.size()).bytes();
}

Bytes HostileRequests::damaged(Bytes bytes) {
    bytes[static_cast<std::size_t>(below(static_cast<int>(bytes.size())))] ^= static_cast<std::uint8_t>(1 + below(255));
    bytes.resize(bytes.size() - static_cast<std::size_t>(below(8)));
    return bytes;
}

} // namespace kelutv::test
