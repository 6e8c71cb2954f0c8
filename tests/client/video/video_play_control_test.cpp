#include "client/ClientTest.h"

#include <kelutv/SystemSetting.h>
#include <kelutv/linux_kelutv_video.h>

#include <unistd.h>

#include <vector>

namespace kelutv::test {
namespace {

const std::vector<LogEntry> kSuccess{{ANDROID_LOG_DEBUG, "TVBASEMW@SystemSetting", "[dtvControl, 600] success"}};
const std::vector<LogEntry> kFailure{{ANDROID_LOG_ERROR, "TVBASEMW@SystemSetting", "[dtvControl, 605] failed"}};

class PlayControl : public ClientTest {
protected:
    int control(void* data, int size) { return SystemSetting::instance()->dtvControl(-7, data, size); }

    unsigned char bytes[5] = {0xFF, 0, 3, 4, 5};
};

// irregular: SystemSetting::dtvControl
TEST_F(PlayControl, sendsTheSizeAndThePaddedBytes) {
    EXPECT_EQ(control(bytes, 5), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x8100).i32(-7).i32(5).raw(bytes, 5).bytes()));
    EXPECT_EQ(logged(), kSuccess);
}

TEST_F(PlayControl, sendsASingleByte) {
    EXPECT_EQ(control(bytes, 1), 0);
    EXPECT_EQ(sent(), only(Wire::request(0x8100).i32(-7).i32(1).raw(bytes, 1).bytes()));
}

TEST_F(PlayControl, sendsTheSizeAloneWithoutBytes) {
    for (const int size : {0, -1, -2147483647 - 1}) {
        EXPECT_EQ(control(bytes, size), 0);
        EXPECT_EQ(sent(), only(requestOf(0x8100, {-7, size})));
    }
    EXPECT_EQ(control(nullptr, 5), 0);
    EXPECT_EQ(sent(), only(requestOf(0x8100, {-7, 5})));
}

TEST_F(PlayControl, failsForAnyResultButZero) {
    for (const std::int32_t result : {1, -1, 256}) {
        answer({result, 0});
        EXPECT_EQ(control(bytes, 5), -1);
        EXPECT_EQ(logged(), kFailure);
    }
}

TEST_F(PlayControl, failsWithTheLinkAndLeavesItsMessageToItself) {
    failTransactions();
    EXPECT_EQ(control(bytes, 5), -1);
    EXPECT_EQ(logged(), kFailure);
}

// irregular: linux_tv_Video_DvbPlayCtrl
TEST_F(PlayControl, isToldOnStandardOutputInC) {
    FdCapture output(STDOUT_FILENO);
    EXPECT_EQ(linux_tv_Video_DvbPlayCtrl(-7, bytes, 5), 0);
    EXPECT_EQ(output.take(), "[linux_tv_Video_DvbPlayCtrl, 194] cmd = -7");
    EXPECT_EQ(sent(), only(Wire::request(0x8100).i32(-7).i32(5).raw(bytes, 5).bytes()));
    EXPECT_EQ(logged(), kSuccess);
    answer({3});
    EXPECT_EQ(linux_tv_Video_DvbPlayCtrl(8, nullptr, 0), -1);
    EXPECT_EQ(output.take(), "[linux_tv_Video_DvbPlayCtrl, 194] cmd = 8");
    EXPECT_EQ(logged(), kFailure);
}

} // namespace
} // namespace kelutv::test
