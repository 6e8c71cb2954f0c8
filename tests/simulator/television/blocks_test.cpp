// Every kind of request item and reply field, on a table of this test's own.

#include "simulator/television/Television.h"
#include "simulator/trace/Trace.h"
#include "support/Wire.h"
#include "wire/codec/Reply.h"
#include "wire/codec/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::simulator {

namespace {

using kelutv::test::Bytes;
using kelutv::test::hex;
using kelutv::test::Wire;

constexpr int kSetCurve = 1;
constexpr int kGetCurve = 2;
constexpr int kSetData = 3;
constexpr int kSetText = 4;
constexpr int kSetRest = 5;
constexpr int kGetRest = 6;
constexpr int kNothing = 7;
constexpr int kGetLed = 8;

constexpr wire::StateKey kStates[] = {
    {"test.curve", "test", wire::Holds::Anything, {}},
    {"test.rest", "test", wire::Holds::Integers, {}},
};
constexpr wire::RequestItem kCurve[] = {{wire::Encoding::Int32, "count", nullptr, wire::kRestOfRequest},
                                        {wire::Encoding::Doubles, "curve", nullptr, 0},
                                        {wire::Encoding::Double, "scale", nullptr, wire::kRestOfRequest}};
constexpr wire::RequestItem kData[] = {{wire::Encoding::Int32, "size", nullptr, wire::kRestOfRequest},
                                       {wire::Encoding::Bytes, "data", nullptr, 0}};
constexpr wire::RequestItem kText[] = {{wire::Encoding::String16, "text", nullptr, wire::kRestOfRequest}};
constexpr wire::RequestItem kRest[] = {{wire::Encoding::Ints, "rest", nullptr, wire::kRestOfRequest}};
constexpr wire::Operand kFirst[] = {{0, 0}};
constexpr wire::Operand kAllOfCurve[] = {{0, 0}, {1, 0}, {2, 0}};
constexpr wire::ReplyField kCurveReply[] = {{wire::Encoding::Int32, "count", nullptr, 1},
                                            {wire::Encoding::Doubles, nullptr, nullptr, 4}};
constexpr wire::ReplyField kRestReply[] = {{wire::Encoding::Ints, nullptr, nullptr, wire::kRestOfReply}};
constexpr wire::ReplyField kLedReply[] = {{wire::Encoding::Int32, nullptr, nullptr, wire::kCountOfRest},
                                          {wire::Encoding::Ints, nullptr, nullptr, wire::kRestOfReply}};
constexpr wire::Command kCommands[] = {
    {"SET_CURVE",
     {kCurve, wire::Shape::Status, {}, {wire::StateRule::Access::Set, &kStates[0], {}, kAllOfCurve}},
     kSetCurve,
     false},
    {"GET_CURVE",
     {{}, wire::Shape::Parcel, kCurveReply, {wire::StateRule::Access::Get, &kStates[0], {}, {}}},
     kGetCurve,
     false},
    {"SET_DATA", {kData, wire::Shape::Status, {}, {wire::StateRule::Access::None, nullptr, {}, {}}}, kSetData, false},
    {"SET_TEXT", {kText, wire::Shape::Status, {}, {wire::StateRule::Access::None, nullptr, {}, {}}}, kSetText, false},
    {"SET_REST",
     {kRest, wire::Shape::Status, {}, {wire::StateRule::Access::Set, &kStates[1], {}, kFirst}},
     kSetRest,
     false},
    {"GET_REST",
     {{}, wire::Shape::Parcel, kRestReply, {wire::StateRule::Access::Get, &kStates[1], {}, {}}},
     kGetRest,
     false},
    {"NOTHING",
     {{}, wire::Shape::Parcel, kCurveReply, {wire::StateRule::Access::None, nullptr, {}, {}}},
     kNothing,
     false},
    {"GET_LED",
     {{}, wire::Shape::Parcel, kLedReply, {wire::StateRule::Access::Get, &kStates[1], {}, {}}},
     kGetLed,
     false},
};

/** What the television answers and what the trace says of it. */
struct Exchange {
    Bytes reply;
    std::string trace;
};

class Blocks : public ::testing::Test {
protected:
    Exchange send(const Wire& wire) {
        wire::ByteReader data(wire.bytes().data(), wire.bytes().size());
        const wire::Request request = wire::readRequest(data);
        const wire::Reply reply = request.refusal ? replyTo(*request.refusal) : mTelevision.perform(request);
        android::Parcel written;
        wire::writeReply(reply, written);
        return {Bytes(written.data(), written.data() + written.dataSize()),
                describe(request) + " -> " + describe(request, reply)};
    }

    void expect(const Wire& request, const Wire& reply, const std::string& trace) {
        const Exchange exchange = send(request);
        EXPECT_EQ(hex(exchange.reply), hex(reply.bytes()));
        EXPECT_EQ(exchange.trace, trace);
    }

private:
    Television mTelevision{Configuration::fromText("{}", "test.json")};
};

TEST_F(Blocks, DoublesAreAsManyAsTheRequestSays) {
    expect(Wire::request(kSetCurve).i32(2).f64(0.5).f64(-1).f64(3), Wire::reply().i32(0),
           "SET_CURVE(count=2, curve=[0.5, -1], scale=3) -> 0");
    expect(Wire::request(kGetCurve), Wire::reply().i32(0).i32(2).f64(0.5).f64(-1).f64(3).f64(0),
           "GET_CURVE() -> 0: count=2, [0.5, -1, 3, 0*1]");
}

TEST_F(Blocks, OfNoOrNegativeLengthAreEmpty) {
    expect(Wire::request(kSetCurve).i32(0).f64(3), Wire::reply().i32(0), "SET_CURVE(count=0, curve=[], scale=3) -> 0");
    expect(Wire::request(kSetData).i32(-5), Wire::reply().i32(0), "SET_DATA(size=-5, data=<>) -> 0");
}

TEST_F(Blocks, LongerThanTheRequestAreRefused) {
    expect(Wire::request(kSetCurve).i32(0x7FFFFFFF).f64(1).f64(2), Wire::reply().i32(-103),
           "SET_CURVE(count=2147483647) -> -103 (curve is missing)");
    expect(Wire::request(kSetCurve).i32(1).f64(1).i32(0), Wire::reply().i32(-103),
           "SET_CURVE(count=1, curve=[1]) -> -103 (scale is missing)");
    expect(Wire::request(kSetData).i32(9).raw("12345678", 8), Wire::reply().i32(-103),
           "SET_DATA(size=9) -> -103 (data is missing)");
}

TEST_F(Blocks, OfBytesAreShownInHexadecimal) {
    expect(Wire::request(kSetData).i32(5).raw("\x00\x01\x7f\x80\xff", 5), Wire::reply().i32(0),
           "SET_DATA(size=5, data=<00 01 7f 80 ff>) -> 0");
}

TEST_F(Blocks, OfUnsaidLengthFillTheRest) {
    expect(Wire::request(kSetRest).i32(7).i32(0).i32(-9), Wire::reply().i32(0), "SET_REST(rest=[7, 0, -9]) -> 0");
    expect(Wire::request(kGetRest), Wire::reply().i32(0).i32(7).i32(0).i32(-9), "GET_REST() -> 0: [7, 0, -9]");
}

TEST_F(Blocks, AreLedByTheirCountWhereTheReplySaysSo) {
    expect(Wire::request(kGetLed), Wire::reply().i32(0).i32(0), "GET_LED() -> 0: 0, []");
    expect(Wire::request(kSetRest).i32(7).i32(-9), Wire::reply().i32(0), "SET_REST(rest=[7, -9]) -> 0");
    expect(Wire::request(kGetLed), Wire::reply().i32(0).i32(2).i32(7).i32(-9), "GET_LED() -> 0: 2, [7, -9]");
}

TEST_F(Blocks, TextsOfTwoByteUnitsAreShownAsUtf8) {
    expect(Wire::request(kSetText).str16(u"Lautst\u00e4rke \u20ac \U0001F50A"), Wire::reply().i32(0),
           "SET_TEXT(text=\"Lautst\xc3\xa4rke \xe2\x82\xac \xf0\x9f\x94\x8a\") -> 0");
    expect(Wire::request(kSetText).i32(400), Wire::reply().i32(-103), "SET_TEXT() -> -103 (text is missing)");
}

TEST_F(Blocks, OfACommandWithoutStateAreZero) {
    expect(Wire::request(kNothing), Wire::reply().i32(0).i32(0).f64(0).f64(0).f64(0).f64(0),
           "NOTHING() -> 0: count=0, [0, 0*3]");
}

TEST(Utf8, ReplacesHalfSurrogatePairs) {
    EXPECT_EQ(wire::toUtf8(std::u16string{u'a', 0xD83D, u'b', 0xDD0A}), "a\xef\xbf\xbd"
                                                                        "b\xef\xbf\xbd");
    EXPECT_EQ(wire::toUtf8(std::u16string{0xD83D}), "\xef\xbf\xbd");
}

} // namespace

} // namespace kelutv::simulator

// These stand in for the generated table.
namespace kelutv::wire {
Rows<Command> allCommands() { return simulator::kCommands; }

Rows<Item> allItems() { return {}; }

Rows<StateKey> allStates() { return simulator::kStates; }

Rows<Enumeration> allEnumerations() { return {}; }

Rows<Enumerator> allEnumerators() { return {}; }

} // namespace kelutv::wire
