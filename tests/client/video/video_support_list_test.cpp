#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/linux_kelutv_video.h>

#include <array>
#include <limits>

namespace kelutv::test {
namespace {

class TvSupportList : public ClientTest {
protected:
    TvSupportList() { list.fill(kUntouched); }

    int read() { return linux_tv_Video_getTvSupportList(list.data(), &length); }

    /** An answer with this count and more entries than an item can hold. */
    void answerWithCount(std::int32_t count) {
        Wire reply = Wire::reply().i32(0).i32(count);
        for (int i = 1; i <= 300; ++i) {
            reply.i32(1000 + i);
        }
        service().reply(reply.bytes());
    }

    /** One more than can ever be copied. */
    std::array<int, 256> list{};
    int length = kUntouched;
};

// irregular: linux_tv_Video_getTvSupportList
TEST_F(TvSupportList, isReadWithItsCount) {
    answer({0, 3, 41, -42, 43, 44});
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(sent(), only(requestOf(0x300E, {12294, 0, 0})));
    EXPECT_EQ(length, 3);
    EXPECT_EQ(list[0], 41);
    EXPECT_EQ(list[1], -42);
    EXPECT_EQ(list[2], 43);
    EXPECT_EQ(list[3], kUntouched);
}

TEST_F(TvSupportList, mayBeEmpty) {
    for (const std::int32_t count : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        answerWithCount(count);
        EXPECT_EQ(read(), 0);
        EXPECT_EQ(length, count);
        EXPECT_EQ(list[0], kUntouched);
    }
}

TEST_F(TvSupportList, isEmptyAfterAFailure) {
    answer({3, 3, 41, 42, 43});
    EXPECT_EQ(read(), -1);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(list[0], kUntouched);
    length = kUntouched;
    failTransactions();
    EXPECT_EQ(read(), -1);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(list[0], kUntouched);
}

TEST_F(TvSupportList, tellsAnyCountAndHoldsAllThatAnItemHas) {
    answerWithCount(254);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(length, 254);
    EXPECT_EQ(list[0], 1001);
    EXPECT_EQ(list[253], 1254);
    EXPECT_EQ(list[254], kUntouched);
}

TEST_F(TvSupportList, endsAfterTwoHundredAndFiftyFiveEntriesWhateverTheCount) {
    for (const std::int32_t count : {255, 256, 257, 511, 100000, std::numeric_limits<std::int32_t>::max()}) {
        list.fill(kUntouched);
        answerWithCount(count);
        EXPECT_EQ(read(), 0);
        EXPECT_EQ(length, count);
        EXPECT_EQ(list[253], 1254);
        EXPECT_EQ(list[254], 0);
        EXPECT_EQ(list[255], kUntouched);
    }
}

TEST_F(TvSupportList, needsNoPlaceForWhatItGives) {
    answer({0, 2, 41, 42});
    EXPECT_EQ(linux_tv_Video_getTvSupportList(nullptr, nullptr), 0);
    EXPECT_EQ(linux_tv_Video_getTvSupportList(nullptr, &length), 0);
    EXPECT_EQ(length, 2);
    EXPECT_EQ(linux_tv_Video_getTvSupportList(list.data(), nullptr), 0);
    EXPECT_EQ(list[1], 42);
}

} // namespace
} // namespace kelutv::test
