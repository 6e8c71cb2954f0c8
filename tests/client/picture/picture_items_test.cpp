#include "client/ClientTest.h"
#include "client/Untouched.h"
#include "client/picture/ThePicture.h"

#include <kelutv/linux_kelutv_picture.h>

#include <array>
#include <limits>
#include <string>

namespace kelutv::test {
namespace {

/** An operation that fills a buffer of 255 ints, in the class and in C. */
struct ItemReader {
    const char* name;
    Bytes request;
    int (*method)(int* data);
    int (*function)(int* data);
    const char* messageOfNull;
};

void PrintTo(const ItemReader& reader, std::ostream* out) { *out << reader.name; }

class PictureItem : public ClientTest, public ::testing::WithParamInterface<ItemReader> {
protected:
    PictureItem() { data.fill(kUntouched); }

    std::array<int, 256> data{};
};

TEST_P(PictureItem, fillsTheWholeBuffer) {
    Wire reply = Wire::reply().i32(0);
    for (int i = 0; i < 300; ++i) {
        reply.i32(1000 + i);
    }
    service().reply(reply.bytes());
    for (const auto read : {GetParam().method, GetParam().function}) {
        data.fill(kUntouched);
        EXPECT_EQ(read(data.data()), 0);
        EXPECT_EQ(sent(), only(GetParam().request));
        EXPECT_EQ(data[0], 1000);
        EXPECT_EQ(data[254], 1254);
        EXPECT_EQ(data[255], kUntouched);
    }
}

TEST_P(PictureItem, holdsZerosWhereTheReplyEnds) {
    answer({0, 5, 6});
    EXPECT_EQ(GetParam().method(data.data()), 0);
    EXPECT_EQ(data[1], 6);
    EXPECT_EQ(data[2], 0);
    EXPECT_EQ(data[254], 0);
    EXPECT_EQ(data[255], kUntouched);
}

TEST_P(PictureItem, isUntouchedByAFailedRead) {
    answer({1, 5, 6});
    EXPECT_EQ(GetParam().method(data.data()), -1);
    EXPECT_EQ(GetParam().function(data.data()), -1);
    EXPECT_EQ(data[0], kUntouched);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(PictureItem, needsABuffer) {
    EXPECT_EQ(GetParam().method(nullptr), -1);
    EXPECT_EQ(logged(), untaggedError(GetParam().messageOfNull));
    EXPECT_EQ(GetParam().function(nullptr), -1);
    EXPECT_EQ(logged(), kNothingLogged);
    EXPECT_EQ(sent(), kNothingSent);
}

const ItemReader kItemReaders[] = {
    {"item", requestOf(0x108D, {11, 12, 13}), [](int* data) { return picture().getPictureItemValue(11, 12, 13, data); },
     [](int* data) { return linux_tv_Picture_getPictureItemValue(11, 12, 13, data); },
     "getPictureItemValue input buf is null"},
    {"advancedColour", requestOf(0x1086, {11, 12}),
     [](int* data) { return picture().getColorAdvancedItem(11, 12, data); },
     [](int* data) { return linux_tv_Picture_getColorAdvancedItem(11, 12, data); },
     "getColorAdvancedItem input buf is null"},
};

INSTANTIATE_TEST_SUITE_P(Picture, PictureItem, ::testing::ValuesIn(kItemReaders),
                         [](const auto& each) { return std::string(each.param.name); });

class MicroDimming : public ClientTest {
protected:
    MicroDimming() { data.fill(kUntouched); }

    std::array<int, 8> data{};
};

// irregular: Picture::getMicroDimmingData
TEST_F(MicroDimming, isReadForEveryPartition) {
    answer({0, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(picture().getMicroDimmingData(2, 3, data.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x1076, {2, 3})));
    EXPECT_EQ(data, (std::array<int, 8>{1, 2, 3, 4, 5, 6, kUntouched, kUntouched}));
    EXPECT_EQ(linux_tv_Picture_getMicroDimmingData(1, 1, data.data()), 0);
    EXPECT_EQ(sent(), only(requestOf(0x1076, {1, 1})));
}

TEST_F(MicroDimming, holdsZerosWhereTheReplyEnds) {
    answer({0, 1, 2});
    EXPECT_EQ(picture().getMicroDimmingData(4, 1, data.data()), 0);
    EXPECT_EQ(data, (std::array<int, 8>{1, 2, 0, 0, kUntouched, kUntouched, kUntouched, kUntouched}));
}

TEST_F(MicroDimming, isSentButNotReadWithoutPartitions) {
    constexpr int kMost = std::numeric_limits<int>::max();
    constexpr int kLeast = std::numeric_limits<int>::min();
    const std::array<int, 2> sizes[] = {{0, 5},          {5, 0},      {-1, 5},     {5, -1},    {kMost, -3},
                                        {kLeast, kMost}, {0, kLeast}, {-2, kMost}, {kMost, -2}};
    answer({0, 1, 2, 3});
    for (const std::array<int, 2>& size : sizes) {
        EXPECT_EQ(picture().getMicroDimmingData(size[0], size[1], data.data()), 0);
        EXPECT_EQ(sent(), only(requestOf(0x1076, {size[0], size[1]})));
        EXPECT_EQ(data[0], kUntouched);
    }
}

TEST_F(MicroDimming, isReadByTheProductOfTwoNegativeCounts) {
    answer({0, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(picture().getMicroDimmingData(-1, -2, data.data()), 0);
    EXPECT_EQ(data[1], 2);
    EXPECT_EQ(data[2], kUntouched);
}

TEST_F(MicroDimming, isUntouchedByAFailedRead) {
    answer({1, 1, 2, 3});
    EXPECT_EQ(picture().getMicroDimmingData(1, 3, data.data()), -1);
    EXPECT_EQ(linux_tv_Picture_getMicroDimmingData(1, 3, data.data()), -1);
    EXPECT_EQ(data[0], kUntouched);
}

TEST_F(MicroDimming, needsABuffer) {
    EXPECT_EQ(picture().getMicroDimmingData(1, 3, nullptr), -1);
    EXPECT_EQ(logged(), untaggedError("getMicroDimmingData input buf is null"));
    EXPECT_EQ(linux_tv_Picture_getMicroDimmingData(1, 3, nullptr), -1);
    EXPECT_EQ(logged(), kNothingLogged);
    EXPECT_EQ(sent(), kNothingSent);
}

} // namespace
} // namespace kelutv::test
