#include "client/ClientTest.h"
#include "client/Untouched.h"
#include "client/audio/TheAudio.h"

#include <kelutv/linux_kelutv_audio.h>

#include <array>
#include <cstring>
#include <numeric>

namespace kelutv::test {
namespace {

constexpr std::size_t kItemValues = 255;

class AudioItem : public ClientTest {
protected:
    AudioItem() { values.fill(kUntouched); }

    /** One more than an item has, to see a write behind it. */
    std::array<int, kItemValues + 1> values;
};

TEST_F(AudioItem, always255ValuesAreRead) {
    Wire reply = Wire::reply().i32(0);
    for (int i = 0; i < 300; ++i) {
        reply.i32(1000 + i);
    }
    service().reply(reply.bytes());
    EXPECT_EQ(audio().getAudioItemValue(0x200C, 3, 0, values.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x2054, {0x200C, 3, 0})));
    std::array<int, kItemValues> expected{};
    std::iota(expected.begin(), expected.end(), 1000);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), values.begin()));
    EXPECT_EQ(values.back(), kUntouched);
}

TEST_F(AudioItem, valuesBehindTheEndOfTheReplyAreZero) {
    answer({0, 21, 22});
    EXPECT_EQ(audio().getAudioItemValue(0x200C, 1, 2, values.data()), 0);
    EXPECT_EQ(values[0], 21);
    EXPECT_EQ(values[1], 22);
    for (std::size_t i = 2; i < kItemValues; ++i) {
        ASSERT_EQ(values[i], 0);
    }
    EXPECT_EQ(values.back(), kUntouched);
}

TEST_F(AudioItem, aNullBufferIsLoggedAndNothingSent) {
    EXPECT_EQ(audio().getAudioItemValue(0x200C, 1, 2, nullptr), -1);
    EXPECT_EQ(logged(), untaggedError("getAudioItemValue input buf is null"));
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(AudioItem, theCReaderFills255ValuesAndRefusesNullSilently) {
    answer({0, 31});
    EXPECT_EQ(linux_tv_Audio_getAudioItemValue(0x2010, 5, 6, values.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x2054, {0x2010, 5, 6})));
    EXPECT_EQ(values[0], 31);
    EXPECT_EQ(values[254], 0);
    EXPECT_EQ(values.back(), kUntouched);

    EXPECT_EQ(linux_tv_Audio_getAudioItemValue(0x2010, 5, 6, nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Audio::setAudioItemStrValue
TEST_F(AudioItem, theTextIsSentBeforeTheSecondParameter) {
    answer({4});
    EXPECT_EQ(audio().setAudioItemStrValue(0x2001, 11, 22, "alpha"), 4);
    EXPECT_EQ(sent(), only(Wire::request(0x2056).i32(0x2001).i32(11).cstr("alpha").i32(22).bytes()));
}

class AudioItemText : public ClientTest {
protected:
    int read() { return audio().getAudioItemStrValue(0x2001, 11, 22, text); }

    void expectFailure() {
        std::strcpy(text, "before");
        EXPECT_EQ(read(), -1);
        EXPECT_STREQ(text, "before");
    }

    char text[4096] = {};
};

// irregular: Audio::getAudioItemStrValue
TEST_F(AudioItemText, isCopiedWhole) {
    const std::string longText(4000, 'x');
    service().reply(Wire::reply().i32(0).cstr(longText.c_str()).cstr("second").bytes());
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(sent(), only(requestOf(0x2057, {0x2001, 11, 22})));
    EXPECT_EQ(text, longText);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(AudioItemText, isCopiedWithItsTerminator) {
    std::memset(text, 'z', sizeof text);
    service().reply(Wire::reply().i32(0).cstr("ab").bytes());
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(std::memcmp(text, "ab\0z", 4), 0);
}

TEST_F(AudioItemText, mayBeEmpty) {
    service().reply(Wire::reply().i32(0).cstr("").bytes());
    std::strcpy(text, "before");
    EXPECT_EQ(read(), 0);
    EXPECT_STREQ(text, "");
}

TEST_F(AudioItemText, failureIsLoggedInTheWordsOfTheSystemModule) {
    service().reply(Wire::reply().i32(2).cstr("ab").bytes());
    expectFailure();
    EXPECT_EQ(logged(), untaggedError("getSystemItemStrValue error"));
    failTransactions();
    expectFailure();
    EXPECT_EQ(logged(), untaggedError("getSystemItemStrValue error"));
}

TEST_F(AudioItemText, missingOrUnterminatedIsAFailure) {
    answer({0});
    expectFailure();
    EXPECT_EQ(logged(), untaggedError("getSystemItemStrValue error"));
    service().reply(Wire::reply().i32(0).raw("abcd", 4).bytes());
    expectFailure();
    EXPECT_EQ(logged(), untaggedError("getSystemItemStrValue error"));
}

TEST_F(AudioItemText, aNullBufferIsLoggedAndNothingSent) {
    EXPECT_EQ(audio().getAudioItemStrValue(0x2001, 11, 22, nullptr), -1);
    EXPECT_EQ(logged(), untaggedError("getAudioItemStrValue input buf is null"));
    EXPECT_EQ(sent(), kNothingSent);
}

} // namespace
} // namespace kelutv::test
