#include "client/ClientTest.h"

#include <kelutv/SourceManager.h>
#include <kelutv/linux_kelutv_sourcemanager.h>

namespace kelutv::test {
namespace {

using WindowRect = ClientTest;

void expectRect(const KeluRect& seen, const KeluRect& expected) {
    EXPECT_EQ(seen.x, expected.x);
    EXPECT_EQ(seen.y, expected.y);
    EXPECT_EQ(seen.width, expected.width);
    EXPECT_EQ(seen.height, expected.height);
}

TEST_F(WindowRect, isSentInSixWords) {
    answer({5});
    EXPECT_EQ(linux_tv_SourceManager_setWindowRect({10, 20, 1920, 0xFFFFFFFFU}, 1, -3), 5);
    EXPECT_EQ(sent(), only(requestOf(0x7003, {10, 20, 1920, -1, 1, -3})));
}

// irregular: SourceManager::getWindowRect
// irregular: linux_tv_SourceManager_getWindowRect
TEST_F(WindowRect, isRead) {
    KeluRect rect{1, 2, 3, 4};
    answer({0, 10, 20, 1920, -1});
    EXPECT_EQ(linux_tv_SourceManager_getWindowRect(&rect, 7), 0);
    EXPECT_EQ(sent(), only(requestOf(0x701C, {7})));
    expectRect(rect, {10, 20, 1920, 0xFFFFFFFFU});
}

TEST_F(WindowRect, givesZeroAfterAFailureAndStays) {
    KeluRect rect{1, 2, 3, 4};
    answer({3, 10, 20, 30, 40});
    EXPECT_EQ(linux_tv_SourceManager_getWindowRect(&rect, 7), 0);
    EXPECT_EQ(SourceManager::instance()->getWindowRect(&rect, 7), 0);
    failTransactions();
    EXPECT_EQ(linux_tv_SourceManager_getWindowRect(&rect, 7), 0);
    expectRect(rect, {1, 2, 3, 4});
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(WindowRect, needsAPlace) {
    EXPECT_EQ(linux_tv_SourceManager_getWindowRect(nullptr, 7), -1);
    EXPECT_EQ(SourceManager::instance()->getWindowRect(nullptr, 7), -1);
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(WindowRect, isBlankedByTheClassAlone) {
    SourceManager::instance()->setMuteWindow(true);
    EXPECT_EQ(sent(), only(requestOf(0x7019, {1})));
    SourceManager::instance()->setMuteWindow(false);
    EXPECT_EQ(sent(), only(requestOf(0x7019, {0})));
}

} // namespace
} // namespace kelutv::test
