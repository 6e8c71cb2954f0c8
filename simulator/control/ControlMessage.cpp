#include "simulator/control/ControlMessage.h"

namespace kelutv::simulator {

std::deque<std::string> packetsOf(char mark, const std::string& text) {
    constexpr std::size_t kPiece = kLongestPacket - 1;
    std::deque<std::string> packets;
    std::size_t at = 0;
    for (; text.size() - at > kPiece; at += kPiece) {
        packets.push_back(kMoreFollows + text.substr(at, kPiece));
    }
    packets.push_back(mark + text.substr(at));
    return packets;
}

bool ControlMessage::add(const char* packet, std::size_t length) {
    if (length == 0 || length > kLongestPacket || length - 1 > mLongest - mText.size()) {
        return false;
    }
    mMark = packet[0];
    mText.append(packet + 1, length - 1);
    return true;
}

void ControlMessage::clear() {
    mText.clear();
    mMark = kMoreFollows;
}

} // namespace kelutv::simulator
