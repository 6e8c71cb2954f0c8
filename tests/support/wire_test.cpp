#include "support/Wire.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

TEST(Wire, requestStartsWithTheTokenAndTheCommand) {
    EXPECT_EQ(hex(Wire::request(0x2008).bytes()),
              "00004000 16000000 61006e00 64007200 6f006900 64002e00 49005400 56004200 61007300 65005300 65007200 "
              "76006900 63006500 00000000 08200000");
}

TEST(Wire, numbersAreLittleEndian) {
    EXPECT_EQ(hex(Wire::reply().i32(-2).f64(1.0).bytes()), "feffffff 00000000 0000f03f");
}

TEST(Wire, cStringsEndWithAZeroAndArePadded) {
    EXPECT_EQ(hex(Wire::reply().cstr("").cstr("abc").cstr("abcd").bytes()), "00000000 61626300 61626364 00000000");
}

TEST(Wire, wideStringsCountTheirUnits) {
    EXPECT_EQ(hex(Wire::reply().str16(u"ab").str16(u"a").bytes()), "02000000 61006200 00000000 01000000 61000000");
}

TEST(Wire, rawBytesArePadded) {
    EXPECT_EQ(hex(Wire::reply().raw("\1\2\3\4\5", 5).i32(7).bytes()), "01020304 05000000 07000000");
}

TEST(Wire, listsOfIntegers) {
    EXPECT_EQ(requestOf(1, {2, 3}), Wire::request(1).i32(2).i32(3).bytes());
    EXPECT_EQ(replyOf({2, 3}), Wire::reply().i32(2).i32(3).bytes());
}

} // namespace
} // namespace kelutv::test
