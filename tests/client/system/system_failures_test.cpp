#include "client/ClientTest.h"

#include <kelutv/SystemSetting.h>
#include <kelutv/linux_kelutv_systemsetting.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

SystemSetting& settings() { return *SystemSetting::instance(); }

std::vector<LogEntry> error(const std::string& text) { return {{ANDROID_LOG_ERROR, "TVBASEMW@SystemSetting", text}}; }

/** Runs with a link that is absent, with one that is dead, and with a living one whose transactions fail. */
class SystemFailure : public ClientTest {
protected:
    SystemFailure() { failTransactions(); }
};

TEST_F(SystemFailure, ofASetIsLogged) {
    int values[] = {1, 2};
    EXPECT_EQ(settings().suspend(), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(settings().setEepMulti(1, values, 2), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(settings().systemReboot(), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(linux_tv_SystemSetting_setLanguage(1), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_TRUE(linux_tv_SystemSetting_setAIScreenStandby(1));
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(SystemFailure, ofAGetIsSilentAlsoWhereTheCommandDoesSomething) {
    EXPECT_EQ(settings().getHalfStandby(), -1);
    EXPECT_EQ(settings().setTimerWakeupParam(1, 2, 3), -1);
    EXPECT_TRUE(settings().OledJbOffrsRepairProc());
    EXPECT_EQ(linux_tv_SystemSetting_setPanelOffrsRepair(), 1);
    EXPECT_TRUE(linux_tv_SystemSetting_getAICloseScreenMode());
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(SystemFailure, leavesBuffersOfTheCaller) {
    int value = 98;
    EXPECT_EQ(settings().getEepMulti(1, &value, 1), -1);
    EXPECT_EQ(settings().getFlashEepMulti(1, &value, 1), -1);
    EXPECT_EQ(settings().getBoxOutputDispPara(&value), -1);
    EXPECT_EQ(settings().GetMenuLanguage(&value), -1);
    EXPECT_EQ(value, 98);
    EXPECT_TRUE(settings().getSupportedTvResolution().empty());
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(SystemFailure, ofATextIsLogged) {
    char text[] = "before";
    EXPECT_EQ(settings().getBootVersion(text), -1);
    EXPECT_EQ(logged(), error("getBootVersion error,return error"));
    EXPECT_EQ(linux_tv_SystemSetting_getMiddlewareVersion(text), -1);
    EXPECT_EQ(logged(), error("getSystemItemStrValue error"));
    EXPECT_STREQ(text, "before");
}

TEST_F(SystemFailure, ofTheRawChannelsIsLoggedByThemAlone) {
    int size = 4;
    EXPECT_EQ(settings().dtvControl(1, nullptr, 0), -1);
    EXPECT_EQ(logged(), error("[dtvControl, 605] failed"));
    EXPECT_EQ(settings().sendCmdToTVServer(1, nullptr, 0, &size, &size), -1);
    const std::vector<LogEntry> lines{
        {ANDROID_LOG_DEBUG, "TVBASEMW@SystemSetting", "[sendCmdToTVServer, 616] cmd = 0x1, inSize = 0"},
        error("[sendCmdToTVServer, 652] failed").front()};
    EXPECT_EQ(logged(), lines);
    EXPECT_EQ(size, 4);
}

TEST_F(SystemFailure, readsAsZeroFromAnItem) {
    FdCapture output(STDOUT_FILENO);
    bool flag = true;
    int size = 99;
    int entry = 98;
    EXPECT_EQ(linux_tv_SystemSetting_getLanguage(), 0);
    EXPECT_EQ(output.take(), "linux_tv_SystemSetting_getSystemItemValue fail");
    EXPECT_EQ(linux_tv_SystemSetting_getTvserverInitFinish(&flag), -1);
    EXPECT_FALSE(flag);
    EXPECT_EQ(linux_tv_SystemSetting_getLanguageList(&entry, &size), -1);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(entry, 98);
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
