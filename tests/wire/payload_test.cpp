#include "wire/events/Payload.h"

#include "wire/events/EventFile.h"
#include "wire/text/Describe.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace kelutv::wire {

namespace {

using Bytes = std::vector<std::uint8_t>;

/** The fields of a payload with one event of these fields, `NAME=VALUE` each. */
std::string fieldsOf(const std::string& payload, const Bytes& bytes) {
    const EventTable table =
        readEvents("## Events\n| identifier | event | payload | when |\n|---|---|---|---|\n| 0x60001 | test | " +
                   payload + " | Always. |\n");
    std::string text;
    for (const PayloadValue& value : readPayload(table.find(0x60001), bytes)) {
        text += (text.empty() ? "" : ", ") + (value.name != nullptr ? value.name + std::string("=") : "") +
                describe({value.value}, value.encoding, value.names);
    }
    return text;
}

TEST(Payload, IsReadFieldByField) {
    EXPECT_EQ(fieldsOf("a:int32, b:bool", {1, 2, 0, 0, 1, 0, 0, 0}), "a=513, b=1");
    EXPECT_EQ(fieldsOf("a:int8, b:uint8, c:int16, d:uint16", {255, 255, 254, 255, 254, 255}),
              "a=-1, b=255, c=-2, d=65534");
    EXPECT_EQ(fieldsOf("source:KELU_TV_SRC_E", {9, 0, 0, 0}), "source=9 KELU_TV_SRC_HDMI1");
    EXPECT_EQ(fieldsOf("source:KELU_TV_SRC_E", {99, 0, 0, 0}), "source=99");
    EXPECT_EQ(fieldsOf("a:uint8, b:text", {7, 'h', 'i', 0}), "a=7, b=\"hi\"");
    EXPECT_EQ(fieldsOf("a:uint8, b:bytes", {2, 0, 255}), "a=2, b=<00 ff>");
    EXPECT_EQ(fieldsOf("a:bytes", {}), "a=<>");
}

TEST(Payload, MayEndBeforeItsFields) {
    EXPECT_EQ(fieldsOf("a:int32, b:int32", {1, 0, 0, 0, 2, 0}), "a=1");
    EXPECT_EQ(fieldsOf("a:int32", {1}), "");
    EXPECT_EQ(fieldsOf("a:text", {'h', 'i'}), "");
}

TEST(Payload, MayGoOnWithWords) {
    EXPECT_EQ(fieldsOf("a:int32", {1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0}), "a=1, 2, 3");
    EXPECT_EQ(fieldsOf("a:int32", {1, 0, 0, 0, 2, 0, 0, 0, 3}), "a=1");
    EXPECT_EQ(fieldsOf("-", {5, 0, 0, 0}), "5");
}

TEST(Payload, SaysWhereEachValueStands) {
    const EventTable table = readEvents("## Events\n| identifier | event | payload | when |\n|---|---|---|---|\n"
                                        "| 0x60001 | test | a:uint8, b:int16, c:text | Always. |\n");
    const auto values = readPayload(table.find(0x60001), {1, 2, 0, 'h', 'i', 0, 9, 0, 0, 0});
    ASSERT_EQ(values.size(), 4U);
    const std::pair<std::size_t, std::size_t> places[] = {{0, 1}, {1, 2}, {3, 3}, {6, 4}};
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(values[i].offset, places[i].first);
        EXPECT_EQ(values[i].size, places[i].second);
    }
}

TEST(Payload, OfAnUnknownEventIsARowOfWords) {
    const auto values = readPayload(nullptr, {255, 255, 255, 255, 4, 0, 0, 0});
    ASSERT_EQ(values.size(), 2U);
    EXPECT_EQ(values[0].name, nullptr);
    EXPECT_EQ(values[0].value, Value(-1));
    EXPECT_EQ(values[1].value, Value(4));
    EXPECT_TRUE(readPayload(nullptr, {1, 2, 3}).empty());
}

TEST(Payload, IsWrittenAsWordsAndTexts) {
    EXPECT_EQ(payloadOf({std::int32_t{1}, std::int32_t{-2}}), std::string("\1\0\0\0\xfe\xff\xff\xff", 8));
    EXPECT_EQ(payloadOf({std::int32_t{3}, std::string("hi")}), std::string("\3\0\0\0hi\0", 7));
}

} // namespace

} // namespace kelutv::wire
