#pragma once

#include <cstddef>
#include <deque>
#include <string>

namespace kelutv::simulator {

/** Where the simulator listens: this socket in this room of the runtime directory. */
constexpr char kControlRoom[] = "simulator";
constexpr char kControlSocket[] = "control";

/** The longest line, and the longest answer that a client takes. */
constexpr std::size_t kLongestLine = 256 * 1024;
constexpr std::size_t kLongestAnswer = 64 * 1024 * 1024;

/**
 * The first byte of a packet; what follows is a piece of the text.
 *
 * A message is any number of packets marked `kMoreFollows` and one with the mark of the message.
 */
constexpr char kMoreFollows = '.';
constexpr char kLine = '>';
constexpr char kData = '+';
constexpr char kComplaint = '-';

constexpr std::size_t kLongestPacket = 16 * 1024;

std::deque<std::string> packetsOf(char mark, const std::string& text);

/** Puts a message together from its packets. */
class ControlMessage {
public:
    explicit ControlMessage(std::size_t longest) : mLongest(longest) {}

    /** Adds a packet; false when it is malformed or makes the text longer than allowed. */
    bool add(const char* packet, std::size_t length);

    bool isWhole() const { return mMark != kMoreFollows; }
    char mark() const { return mMark; }
    const std::string& text() const { return mText; }

    /** Makes room for the next message. */
    void clear();

private:
    std::size_t mLongest;
    std::string mText;
    char mMark = kMoreFollows;
};

} // namespace kelutv::simulator
