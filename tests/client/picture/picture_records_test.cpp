#include "client/ClientTest.h"
#include "client/picture/ThePicture.h"

#include <kelutv/linux_kelutv_picture.h>

#include <array>

namespace kelutv::test {
namespace {

using WhiteBalance = std::array<int, 6>;
using Corrections = std::array<int, 7>;

WhiteBalance fields(const ColorTempData& data) {
    return {data.redGain, data.greenGain, data.blueGain, data.redOffset, data.greenOffset, data.blueOffset};
}

Corrections fields(const ColorControlInfoData& data) {
    return {data.red, data.green, data.blue, data.cyan, data.magenta, data.yellow, data.complexion};
}

using PictureRecord = ClientTest;

TEST_F(PictureRecord, areZeroWhereTheReplyEnds) {
    answer({0, 1, 2});
    EXPECT_EQ(fields(picture().getColorTempPara()), (WhiteBalance{1, 2, 0, 0, 0, 0}));
}

// irregular: linux_tv_Picture_getColorTempPara
TEST_F(PictureRecord, theCWhiteBalanceAlwaysSucceeds) {
    ColorTempData data{9, 9, 9, 9, 9, 9};
    answer({0, 1, -2, 3, -4, 5, -6});
    EXPECT_EQ(linux_tv_Picture_getColorTempPara(&data), 0);
    EXPECT_EQ(fields(data), (WhiteBalance{1, -2, 3, -4, 5, -6}));
    answer({1, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(linux_tv_Picture_getColorTempPara(&data), 0);
    EXPECT_EQ(fields(data), WhiteBalance{});
}

// irregular: linux_tv_Picture_getColorControlInfoPara
TEST_F(PictureRecord, theCCorrectionsAlwaysSucceed) {
    ColorControlInfoData data{9, 9, 9, 9, 9, 9, 9};
    answer({0, 1, -2, 3, -4, 5, -6, 7});
    EXPECT_EQ(linux_tv_Picture_getColorControlInfoPara(&data), 0);
    EXPECT_EQ(fields(data), (Corrections{1, -2, 3, -4, 5, -6, 7}));
    answer({1, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(linux_tv_Picture_getColorControlInfoPara(&data), 0);
    EXPECT_EQ(fields(data), Corrections{});
}

} // namespace
} // namespace kelutv::test
