#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/Picture.h>
#include <kelutv/linux_kelutv_picture.h>

#include <array>
#include <list>
#include <string>

namespace kelutv::test {
namespace {

/** A list operation of the class, and its C function, which does not look at the places it is given. */
struct PictureListReader {
    const char* name;
    Bytes request;
    std::list<int> (*method)();
    int (*function)(int* list, int* size);
};

void PrintTo(const PictureListReader& reader, std::ostream* out) { *out << reader.name; }

class PictureList : public ClientTest, public ::testing::WithParamInterface<PictureListReader> {
protected:
    PictureList() { list.fill(kUntouched); }

    static std::list<int> read() { return GetParam().method(); }

    void expectRefused() {
        EXPECT_EQ(GetParam().function(list.data(), &size), -1);
        EXPECT_EQ(list[0], kUntouched);
        EXPECT_EQ(size, kUntouched);
    }

    std::array<int, 400> list{};
    int size = kUntouched;
};

TEST_P(PictureList, holdsEveryNumberOfTheReply) {
    answer({0, 7, -8, 0, 9});
    EXPECT_EQ(read(), (std::list<int>{7, -8, 0, 9}));
    EXPECT_EQ(sent(), only(GetParam().request));
}

TEST_P(PictureList, isEmptyWithoutNumbersAndAfterAFailure) {
    answer({0});
    EXPECT_EQ(read(), std::list<int>{});
    answer({1, 7, 8});
    EXPECT_EQ(read(), std::list<int>{});
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(PictureList, dropsBytesThatMakeNoNumber) {
    for (std::size_t left = 1; left < sizeof(std::int32_t); ++left) {
        Bytes reply = replyOf({0, 7, 8, 9});
        reply.resize(reply.size() - sizeof(std::int32_t) + left);
        service().reply(reply);
        EXPECT_EQ(read(), (std::list<int>{7, 8}));
    }
}

TEST_P(PictureList, isCopiedWithItsCount) {
    answer({0, 7, -8, 9});
    EXPECT_EQ(GetParam().function(list.data(), &size), 0);
    EXPECT_EQ(sent(), only(GetParam().request));
    EXPECT_EQ(size, 3);
    EXPECT_EQ(list[0], 7);
    EXPECT_EQ(list[1], -8);
    EXPECT_EQ(list[2], 9);
    EXPECT_EQ(list[3], kUntouched);
}

TEST_P(PictureList, isCopiedWhateverItsLength) {
    Wire reply = Wire::reply().i32(0);
    for (int i = 0; i < 300; ++i) {
        reply.i32(1000 + i);
    }
    service().reply(reply.bytes());
    EXPECT_EQ(GetParam().function(list.data(), &size), 0);
    EXPECT_EQ(size, 300);
    EXPECT_EQ(list[299], 1299);
    EXPECT_EQ(list[300], kUntouched);
}

TEST_P(PictureList, isRefusedWhenEmptyAndNothingIsWritten) {
    answer({0});
    expectRefused();
    answer({1, 7, 8});
    expectRefused();
    failTransactions();
    expectRefused();
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_P(PictureList, isNotStoredWhereThereIsNoPlace) {
    answer({0, 7, 8});
    EXPECT_EQ(GetParam().function(nullptr, &size), 0);
    EXPECT_EQ(size, 2);
    EXPECT_EQ(GetParam().function(list.data(), nullptr), 0);
    EXPECT_EQ(list[1], 8);
    EXPECT_EQ(GetParam().function(nullptr, nullptr), 0);
}

std::list<int> aspects() { return Picture::instance()->getAvailAspectList(); }

std::list<int> modes() { return Picture::instance()->getPicModeEnable(6); }

int copyModes(int* list, int* size) { return linux_tv_Picture_getPicModeEnable(6, list, size); }

const PictureListReader kPictureListReaders[] = {
    // irregular: Picture::getAvailAspectList
    // irregular: linux_tv_Picture_getAvailAspectList
    {"aspects", requestOf(0x1032), aspects, linux_tv_Picture_getAvailAspectList},
    // irregular: Picture::getPicModeEnable
    // irregular: linux_tv_Picture_getPicModeEnable
    {"modes", requestOf(0x107F, {6}), modes, copyModes},
};

INSTANTIATE_TEST_SUITE_P(Picture, PictureList, ::testing::ValuesIn(kPictureListReaders),
                         [](const auto& each) { return std::string(each.param.name); });

using BrightnessHistogram = ClientTest;

// irregular: Picture::getBrightnessHistogram
TEST_F(BrightnessHistogram, holdsEveryNumberOfTheReply) {
    answer({0, 7, -8, 0, 9});
    EXPECT_EQ(Picture::instance()->getBrightnessHistogram(), (std::list<int>{7, -8, 0, 9}));
    EXPECT_EQ(sent(), only(requestOf(0x1040)));
    answer({2, 7});
    EXPECT_EQ(Picture::instance()->getBrightnessHistogram(), std::list<int>{});
}

// irregular: linux_tv_Picture_getBrightnessHistogram
TEST_F(BrightnessHistogram, isCopiedWithoutItsCount) {
    std::array<int, 4> values{kUntouched, kUntouched, kUntouched, kUntouched};
    answer({0});
    EXPECT_EQ(linux_tv_Picture_getBrightnessHistogram(values.data()), -1);
    answer({1, 7, 8, 9});
    EXPECT_EQ(linux_tv_Picture_getBrightnessHistogram(values.data()), -1);
    EXPECT_EQ(values[0], kUntouched);

    answer({0, 7, 8, 9});
    EXPECT_EQ(linux_tv_Picture_getBrightnessHistogram(values.data()), 0);
    EXPECT_EQ(values, (std::array<int, 4>{7, 8, 9, kUntouched}));
    sent();
    EXPECT_EQ(linux_tv_Picture_getBrightnessHistogram(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
}

} // namespace
} // namespace kelutv::test
