#include "ClientTest.h"

#include <kelutv/Picture.h>
#include <kelutv/linux_kelutv_picture.h>

#include <array>

namespace kelutv::test {
namespace {

Picture& picture() { return *Picture::instance(); }

using WhiteBalance = std::array<int, 6>;
using Corrections = std::array<int, 7>;
using Scope = std::array<int, 4>;

WhiteBalance fields(const ColorTempData& data) {
    return {data.redGain, data.greenGain, data.blueGain, data.redOffset, data.greenOffset, data.blueOffset};
}

Corrections fields(const ColorControlInfoData& data) {
    return {data.red, data.green, data.blue, data.cyan, data.magenta, data.yellow, data.complexion};
}

Scope fields(const ScopeInfo& data) { return {data.horPos, data.verPos, data.horRange, data.verRange}; }

using PictureRecord = ClientTest;

TEST_F(PictureRecord, areSentFieldByField) {
    answer({2});
    EXPECT_EQ(picture().setColorTempPara({1, -2, 3, -4, 5, -6}), 2);
    EXPECT_EQ(sent(), only(requestOf(0x1037, {1, -2, 3, -4, 5, -6})));
    EXPECT_EQ(picture().setColorControlInfoPara({1, -2, 3, -4, 5, -6, 7}), 2);
    EXPECT_EQ(sent(), only(requestOf(0x107C, {1, -2, 3, -4, 5, -6, 7})));
    EXPECT_EQ(picture().setScopeInfo({1, -2, 3, -4}), 2);
    EXPECT_EQ(sent(), only(requestOf(0x1049, {1, -2, 3, -4})));
}

TEST_F(PictureRecord, areReadFieldByField) {
    answer({0, 1, -2, 3, -4, 5, -6, 7});
    EXPECT_EQ(fields(picture().getColorTempPara()), (WhiteBalance{1, -2, 3, -4, 5, -6}));
    EXPECT_EQ(sent(), only(requestOf(0x1038)));
    EXPECT_EQ(fields(picture().getColorControlInfoPara()), (Corrections{1, -2, 3, -4, 5, -6, 7}));
    EXPECT_EQ(sent(), only(requestOf(0x107D)));
    EXPECT_EQ(fields(picture().getScopeInfo()), (Scope{1, -2, 3, -4}));
    EXPECT_EQ(sent(), only(requestOf(0x104A)));
}

TEST_F(PictureRecord, areZeroAfterAFailure) {
    answer({1, 1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(fields(picture().getColorTempPara()), WhiteBalance{});
    EXPECT_EQ(fields(picture().getColorControlInfoPara()), Corrections{});
    EXPECT_EQ(fields(picture().getScopeInfo()), Scope{});
    EXPECT_EQ(logged(), kNothingLogged);
}

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

TEST_F(PictureRecord, theCFunctionsRefuseNull) {
    EXPECT_EQ(linux_tv_Picture_getColorTempPara(nullptr), -1);
    EXPECT_EQ(linux_tv_Picture_getColorControlInfoPara(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
