#include "client/ClientTest.h"

#include <kelutv/linux_kelutv_audio.h>

namespace kelutv::test {
namespace {

Bytes itemGet(int item, std::int32_t param1 = 0) { return requestOf(0x2054, {item, param1, 0}); }

using AudioCItem = ClientTest;

// irregular: linux_tv_Audio_getMaxVolume
// irregular: linux_tv_Audio_getBootVolume
TEST_F(AudioCItem, volumesAreReadAndZeroAfterAFailure) {
    answer({0, 80});
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(3), 80);
    EXPECT_EQ(sent(), only(itemGet(8204, 3)));
    EXPECT_EQ(linux_tv_Audio_getBootVolume(4), 80);
    EXPECT_EQ(sent(), only(itemGet(8211, 4)));
    answer({1, 80});
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(3), 0);
    EXPECT_EQ(linux_tv_Audio_getBootVolume(3), 0);
    failTransactions();
    EXPECT_EQ(linux_tv_Audio_getMaxVolume(3), 0);
    EXPECT_EQ(linux_tv_Audio_getBootVolume(3), 0);
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: linux_tv_Audio_getNewOutputMode
TEST_F(AudioCItem, theOutputModeIsStoredAlsoAfterAFailedRead) {
    int mode = 99;
    answer({0, -3});
    EXPECT_EQ(linux_tv_Audio_getNewOutputMode(&mode), 0);
    EXPECT_EQ(mode, -3);
    sent();
    answer({1, 4});
    EXPECT_EQ(linux_tv_Audio_getNewOutputMode(&mode), -1);
    EXPECT_EQ(mode, 0);
    EXPECT_EQ(sent(), only(itemGet(8195)));
}

TEST_F(AudioCItem, theOutputModeNeedsAPlace) {
    EXPECT_EQ(linux_tv_Audio_getNewOutputMode(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
}

// irregular: linux_tv_Audio_isHeadphoneForLineoutSupport
TEST_F(AudioCItem, headphoneSupportIsAFlagAndNoneAfterAFailure) {
    answer({0, -3});
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 1);
    EXPECT_EQ(sent(), only(itemGet(8219)));
    answer({0, 0});
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 0);
    answer({1, 1});
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 0);
    failTransactions();
    EXPECT_EQ(linux_tv_Audio_isHeadphoneForLineoutSupport(), 0);
}

} // namespace
} // namespace kelutv::test
