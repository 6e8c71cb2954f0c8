// What the source and video functions make of a link that fails, was never there, or is dead.

#include "client/ClientTest.h"

#include <kelutv/SystemSetting.h>
#include <kelutv/Video3D.h>
#include <kelutv/linux_kelutv_sourcemanager.h>
#include <kelutv/linux_kelutv_video.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

class SourceVideoFailure : public ClientTest {
protected:
    void SetUp() override { failTransactions(); }
};

TEST_F(SourceVideoFailure, isHiddenByTheSelection) {
    EXPECT_EQ(linux_tv_SourceManager_selectSource(9, 0), 0);
    const std::vector<LogEntry> lines = logged();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1], kInvokeFailure.front());
}

TEST_F(SourceVideoFailure, isNotFolded) {
    EXPECT_EQ(linux_tv_SourceManager_getCurSourceId(0), -1);
    EXPECT_EQ(linux_tv_SourceManager_getSelectSourceId(), -1);
    EXPECT_EQ(linux_tv_SourceManager_getBootSource(), -1);
    EXPECT_EQ(linux_tv_SourceManager_getLastMainSource(), -1);
}

TEST_F(SourceVideoFailure, makesEveryQuestionTrue) {
    EXPECT_EQ(linux_tv_SourceManager_isDVIMode(), 1);
    EXPECT_EQ(linux_tv_SourceManager_getOfflineSigStatus(9), 1);
    EXPECT_EQ(linux_tv_Video_is3dEnable(), 1);
    EXPECT_EQ(linux_tv_Video_getSwitchLR(), 1);
    EXPECT_EQ(linux_tv_Video_get3dto2d(), 1);
}

TEST_F(SourceVideoFailure, leavesEmptyLists) {
    int list = 98;
    int count = 99;
    EXPECT_EQ(linux_tv_SourceManager_getSourceList(&list, &count), -1);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(list, 98);
    count = 99;
    EXPECT_EQ(linux_tv_Video_getTvSupportList(&list, &count), -1);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(list, 98);
}

TEST_F(SourceVideoFailure, leavesWindowsAndTimingOfTheCaller) {
    KeluRect rect{1, 2, 3, 4};
    EXPECT_EQ(linux_tv_SourceManager_getWindowRect(&rect, 0), 0);
    EXPECT_EQ(rect.height, 4U);
    KELU_TV_WINDOW_ATTR_S window{};
    window.outputRect.height = 9;
    EXPECT_EQ(linux_tv_Video_getWindowAttr(KELU_TV_SRC_ATV, &window), 0);
    EXPECT_EQ(window.outputRect.height, 9U);
    TimingScreen timing{};
    timing.width = 640;
    EXPECT_EQ(linux_tv_SourceManager_getTimingInfo(&timing), -1);
    EXPECT_EQ(timing.width, 640U);
}

TEST_F(SourceVideoFailure, leavesFalseInFlags) {
    bool locked = true;
    EXPECT_EQ(linux_tv_Video_isSignalLock(&locked), -1);
    EXPECT_FALSE(locked);
    bool mute = true;
    bool freeze = true;
    EXPECT_EQ(linux_tv_Video_getMuteWindowStatus(&mute, &freeze), -1);
    EXPECT_FALSE(mute);
    EXPECT_FALSE(freeze);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(SourceVideoFailure, ofThePlayControlIsLoggedOnce) {
    EXPECT_EQ(SystemSetting::instance()->dtvControl(1, nullptr, 0), -1);
    const std::vector<LogEntry> line{{ANDROID_LOG_ERROR, "TVBASEMW@SystemSetting", "[dtvControl, 605] failed"}};
    EXPECT_EQ(logged(), line);
}

} // namespace
} // namespace kelutv::test
