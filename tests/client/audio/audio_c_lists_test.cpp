#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/linux_kelutv_audio.h>

#include <array>
#include <limits>
#include <string>

namespace kelutv::test {
namespace {

struct AudioListReader {
    const char* name;
    int item;
    int (*function)(int* list, int* size);
};

void PrintTo(const AudioListReader& reader, std::ostream* out) { *out << reader.name; }

class AudioList : public ClientTest, public ::testing::WithParamInterface<AudioListReader> {
protected:
    AudioList() { list.fill(kUntouched); }

    int read() { return GetParam().function(list.data(), &size); }

    void expectRefused() {
        EXPECT_EQ(read(), -1);
        EXPECT_EQ(size, kUntouched);
        EXPECT_EQ(list[0], kUntouched);
    }

    /** One more than an item can hold behind its count. */
    std::array<int, 255> list{};
    int size = kUntouched;
};

TEST_P(AudioList, isReadWithItsCount) {
    answer({0, 3, 41, -42, 43, 44});
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(sent(), only(requestOf(0x2054, {GetParam().item, 0, 0})));
    EXPECT_EQ(size, 3);
    EXPECT_EQ(list[0], 41);
    EXPECT_EQ(list[1], -42);
    EXPECT_EQ(list[2], 43);
    EXPECT_EQ(list[3], kUntouched);
}

TEST_P(AudioList, isRefusedWithoutEntries) {
    for (const std::int32_t count : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        answer({0, count, 41});
        expectRefused();
    }
}

/** The read's own result is not looked at: what counts is the count, which is 0 after a failed read. */
TEST_P(AudioList, isRefusedAfterAFailedRead) {
    answer({1, 3, 41, 42, 43});
    expectRefused();
    failTransactions();
    expectRefused();
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(AudioList, holdsZerosWhereTheReplyEnds) {
    answer({0, 3, 41});
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(size, 3);
    EXPECT_EQ(list[0], 41);
    EXPECT_EQ(list[1], 0);
    EXPECT_EQ(list[2], 0);
    EXPECT_EQ(list[3], kUntouched);
}

TEST_P(AudioList, tellsAnyCountButHoldsNoMoreThanAnItem) {
    for (const std::int32_t count : {254, 255, 100000, std::numeric_limits<std::int32_t>::max()}) {
        Wire reply = Wire::reply().i32(0).i32(count);
        for (int i = 0; i < 300; ++i) {
            reply.i32(1000 + i);
        }
        service().reply(reply.bytes());
        EXPECT_EQ(read(), 0);
        EXPECT_EQ(size, count);
        EXPECT_EQ(list[0], 1000);
        EXPECT_EQ(list[253], 1253);
        EXPECT_EQ(list[254], kUntouched);
    }
}

TEST_P(AudioList, needsBothPlaces) {
    EXPECT_EQ(GetParam().function(nullptr, &size), -1);
    EXPECT_EQ(GetParam().function(list.data(), nullptr), -1);
    EXPECT_EQ(GetParam().function(nullptr, nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(size, kUntouched);
}

const AudioListReader kAudioListReaders[] = {
    // irregular: linux_tv_Audio_getNewOutputList
    {"newOutputs", 8194, linux_tv_Audio_getNewOutputList},
    // irregular: linux_tv_Audio_GetDefaultSndOutputList
    {"defaultOutputs", 8222, linux_tv_Audio_GetDefaultSndOutputList},
};

INSTANTIATE_TEST_SUITE_P(Audio, AudioList, ::testing::ValuesIn(kAudioListReaders),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace kelutv::test
