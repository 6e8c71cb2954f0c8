#include "tools/recordings/RecordingText.h"

#include "tools/Tool.h"

#include <cstdio>

namespace kelutv::test {

namespace {

std::string momentText(const char* kind, int sequence, int process, int thread) {
    return std::string(R"({"kind":")") + kind + R"(","sequence":)" + std::to_string(sequence) + R"(,"time":)" +
           std::to_string(sequence) + R"(000000000,"process":)" + std::to_string(process) + R"(,"thread":)" +
           std::to_string(thread);
}

} // namespace

std::string headerLine() {
    return R"({"kind":"header","format":1,"library":"1.0.0","catalogue":"other","token":"","machine":"m",)"
           R"("system":"s","byteOrder":"little","start":"2026-11-22T13:55:01.000000000Z"})"
           "\n";
}

std::string wordDigits(std::uint32_t word) {
    char text[9];
    std::snprintf(text, sizeof(text), "%02x%02x%02x%02x", word & 0xff, word >> 8 & 0xff, word >> 16 & 0xff, word >> 24);
    return text;
}

std::string lineOf(const CallText& call) {
    const bool isAnswered = call.reply != "null";
    return momentText("transaction", call.sequence, call.process, call.thread) + R"(,"duration":)" +
           std::to_string(call.microseconds) + R"(000,"status":)" + (isAnswered ? "0" : "-32") + R"(,"request":")" +
           tokenDigits() + call.words + R"(","reply":)" + (isAnswered ? '"' + call.reply + '"' : call.reply) + "}\n";
}

std::string setVolumeWords(std::uint32_t volume) { return wordDigits(0x2008) + wordDigits(0) + wordDigits(volume); }

std::string getVolumeWords() { return wordDigits(0x2009) + wordDigits(0); }

std::string volumeEventLine(int sequence, std::uint32_t volume, int process, int thread) {
    return momentText("event", sequence, process, thread) + R"(,"event":393217,"payload":")" + wordDigits(0) +
           wordDigits(volume) + "\"}\n";
}

} // namespace kelutv::test
