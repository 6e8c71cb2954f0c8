#pragma once

#include <cstdint>
#include <string>

namespace kelutv::test {

/** The header of a recording, with its line end, that names no token. */
std::string headerLine();

/** The digits of a word in a little-endian parcel. */
std::string wordDigits(std::uint32_t word);

/** A transaction of a recording as a test writes it. */
struct CallText {
    int sequence;
    /** Of the request behind its token, as hexadecimal digits. */
    std::string words;
    /** As hexadecimal digits, or `null` for none. */
    std::string reply = "00000000";
    int microseconds = 100;
    int process = 100;
    int thread = 100;
};

/** The line, a second later than the one of the sequence before it. */
std::string lineOf(const CallText& call);

/** The words of a request that sets or gets the volume of the speaker. @{ */
std::string setVolumeWords(std::uint32_t volume);
std::string getVolumeWords();
/** @} */

/** The line of the event that the volume of the speaker has changed. */
std::string volumeEventLine(int sequence, std::uint32_t volume, int process = 100, int thread = 107);

} // namespace kelutv::test
