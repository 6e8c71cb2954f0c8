#include "recording/Line.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace kelutv::recording {

namespace {

constexpr char kHeader[] = R"({"kind":"header","format":1,"library":"1.0.0","catalogue":"0123456789abcdef",)"
                           R"("token":"00004000","machine":"armv7l","system":"Linux 5.10.0","byteOrder":"little",)"
                           R"("start":"2026-11-22T13:55:01.123456789Z"})";
constexpr char kTransaction[] = R"({"kind":"transaction","sequence":7,"time":1000000001,"process":12,"thread":13,)"
                                R"("duration":250,"status":0,"request":"00ff7f80","reply":"",)"
                                R"("decoded":{"request":{"z":1,"a":[0.5,null]},"reply":null}})";
constexpr char kEvent[] = R"({"kind":"event","sequence":8,"time":-5,"process":12,"thread":14,"event":4294967295,)"
                          R"("payload":"0a"})";

std::string refusalOf(const std::string& text) {
    try {
        lineOf(text);
        return "";
    } catch (const LineError& error) {
        return error.what();
    }
}

std::string with(std::string line, const std::string& piece, const std::string& other) {
    return line.replace(line.find(piece), piece.size(), other);
}

TEST(Line, isTheSameOnceReadAndWritten) {
    for (const std::string& text : {std::string(kHeader), std::string(kTransaction), std::string(kEvent),
                                    std::string(R"({"kind":"loss","sequence":9,"time":3,"process":1,"thread":1})"),
                                    std::string(R"({"kind":"gap","sequence":10,"time":4,"count":17})"),
                                    std::string(R"({"kind":"end","sequence":11,"time":5,"reason":"program"})")}) {
        EXPECT_EQ(textOf(lineOf(text)), text);
    }
}

TEST(Line, keepsWhatItDoesNotKnow) {
    const std::string more =
        R"({"kind":"loss","sequence":9,"time":3,"process":1,"thread":1,"why":{"b":1,"a":"ü"},"x":null})";
    EXPECT_EQ(textOf(lineOf(more)), more);
    const std::string other = R"({"kind":"temperature","celsius":41.5})";
    EXPECT_EQ(std::get<Unknown>(lineOf(other).content).kind, "temperature");
    EXPECT_EQ(textOf(lineOf(other)), other);
}

TEST(Line, hasWhatItsTextSays) {
    const auto transaction = std::get<Transaction>(lineOf(kTransaction).content);
    EXPECT_EQ(transaction.moment.sequence, 7);
    EXPECT_EQ(transaction.moment.time, 1000000001);
    EXPECT_EQ(transaction.moment.process, 12);
    EXPECT_EQ(transaction.moment.thread, 13);
    EXPECT_EQ(transaction.duration, 250);
    EXPECT_EQ(transaction.request, (Bytes{0x00, 0xff, 0x7f, 0x80}));
    EXPECT_EQ(transaction.reply, Bytes());
    EXPECT_EQ(std::get<Event>(lineOf(kEvent).content).event, std::numeric_limits<std::uint32_t>::max());
    EXPECT_TRUE(std::get<Header>(lineOf(kHeader).content).isLittleEndian);
}

TEST(Line, hasEveryByte) {
    Transaction transaction;
    transaction.moment = {1, 0, 1, 1};
    for (int byte = 0; byte < 256; ++byte) {
        transaction.request.push_back(static_cast<std::uint8_t>(byte));
    }
    transaction.reply = Bytes(transaction.request.rbegin(), transaction.request.rend());
    const auto read = std::get<Transaction>(lineOf(textOf({transaction})).content);
    EXPECT_EQ(read.request, transaction.request);
    EXPECT_EQ(read.reply, transaction.reply);
}

TEST(Line, tellsWhenAndWhereItWas) {
    EXPECT_EQ(timeOf(lineOf(kHeader)), nullptr);
    EXPECT_EQ(*timeOf(lineOf(kEvent)), -5);
    EXPECT_EQ(momentOf(lineOf(kEvent))->thread, 14);
    EXPECT_EQ(*sequenceOf(lineOf(R"({"kind":"gap","sequence":10,"time":4,"count":17})")), 10);
    EXPECT_EQ(momentOf(lineOf(R"({"kind":"gap","sequence":10,"time":4,"count":17})")), nullptr);
}

TEST(Line, refusesWhatIsNone) {
    EXPECT_NE(refusalOf("").find("this is not JSON"), std::string::npos);
    EXPECT_EQ(refusalOf("[]"), "an object is needed, not []");
    EXPECT_EQ(refusalOf("{}"), "\"kind\" is missing");
    EXPECT_EQ(refusalOf(R"({"kind":1})"), "\"kind\" needs a text, not 1");
    EXPECT_EQ(refusalOf(R"({"kind":"loss","kind":"loss"})"), "\"kind\" is given twice in one object");
    EXPECT_EQ(refusalOf(with(kHeader, "\"format\":1", "\"format\":2")),
              "the recording has format 2, and this version knows formats up to 1");
    EXPECT_EQ(refusalOf(with(kTransaction, "00ff7f80", "00f")),
              "\"request\" needs pairs of hexadecimal digits, not \"00f\"");
    EXPECT_EQ(refusalOf(with(kTransaction, "\"status\":0", "\"status\":-32")),
              "\"reply\" needs bytes when \"status\" is 0, and null when it is not");
    EXPECT_EQ(refusalOf(with(kEvent, "4294967295", "4294967296")),
              "\"event\" needs a whole number from 0 to 4294967295, not 4294967296");
    EXPECT_EQ(refusalOf(with(kEvent, "\"sequence\":8", "\"sequence\":1.5")),
              "\"sequence\" needs a whole number from 1 to 9223372036854775807, not 1.5");
    for (const char* const number : {"1152921504606846977", "-1152921504606846977", "9223372036854775807"}) {
        EXPECT_EQ(refusalOf(with(kEvent, "\"time\":-5", std::string("\"time\":") + number)),
                  std::string("\"time\" needs a whole number from -1152921504606846976 to 1152921504606846976, not ") +
                      number);
    }
    EXPECT_EQ(refusalOf(R"({"kind":"gap","sequence":10,"time":4,"count":4294967296})"),
              "\"count\" needs a whole number from 1 to 4294967295, not 4294967296");
    EXPECT_EQ(refusalOf(with(kHeader, "little", "middle")),
              "\"byteOrder\" needs \"little\" or \"big\", not \"middle\"");
    EXPECT_EQ(refusalOf(std::string(40, '[')), "objects and lists are nested more than 32 deep");
}

} // namespace

} // namespace kelutv::recording
