// What the configuration, CEC and PC settings make of a link that fails, was never there, or is dead.

#include "client/ClientTest.h"

#include <kelutv/Config.h>
#include <kelutv/HdmiCEC.h>
#include <kelutv/linux_kelutv_hdmicec.h>
#include <kelutv/linux_kelutv_pcsetting.h>

#include <kqcommon/ExtPort.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

class ConfigCecFailure : public ClientTest {
protected:
    void SetUp() override { failTransactions(); }
};

TEST_F(ConfigCecFailure, leavesSwitchesOfTheCaller) {
    CConfig config;
    bool flag = true;
    EXPECT_EQ(config.GetCECSwitchMode(&flag), -1);
    EXPECT_EQ(config.GetCECTvAutoPowerOff(&flag), -1);
    EXPECT_EQ(config.GetARCEnable(&flag), -1);
    EXPECT_TRUE(config.GetCECDeviceAutoPowerOff(&flag));
    EXPECT_TRUE(config.GetCECTVAutoPowerOn(&flag));
    EXPECT_TRUE(flag);
    KELU_MW_SND_ARC_MODE_E mode = KELU_MW_SND_ARC_AUDIO_MODE_AUTO;
    EXPECT_EQ(config.GetARCMode(&mode), -1);
    EXPECT_EQ(mode, KELU_MW_SND_ARC_AUDIO_MODE_AUTO);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(ConfigCecFailure, ofASwitchIsLogged) {
    CConfig config;
    EXPECT_EQ(config.SetARCEnable(true), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(ConfigCecFailure, ofThePictureIsLoggedForTheSetter) {
    EXPECT_EQ(linux_tv_PCSetting_getClock(), -1);
    EXPECT_EQ(logged(), kNothingLogged);
    EXPECT_EQ(linux_tv_PCSetting_autoAdjust(), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(ConfigCecFailure, makesEveryQuestionTrue) {
    EXPECT_TRUE(HdmiCEC::instance()->isArcSupported());
    EXPECT_TRUE(HdmiCEC::instance()->GetARCActiveStatus());
    EXPECT_EQ(linux_tv_HdmiCEC_getSupportArcPort(), -1);
    EXPECT_EQ(linux_tv_HdmiCEC_selectDevice(4), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(ConfigCecFailure, ofAKeyComesAfterItsLine) {
    FdCapture told(STDERR_FILENO);
    KELU_CEC_CMD_INFO_S key{E_MW_CEC_UI_CMD_UP, false};
    EXPECT_EQ(linux_tv_HdmiCEC_sendCecCommand(&key), -1);
    EXPECT_EQ(told.take(), "D/HdmiCEC sendCecCmd() KeyEvent: ir code: 0x1, Down(0).");
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(ConfigCecFailure, leavesTheListOfTheCaller) {
    std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S> devices(2);
    EXPECT_EQ(linux_tv_HdmiCEC_getDeviceListInfo(&devices), -1);
    EXPECT_EQ(devices.size(), 2U);
}

TEST_F(ConfigCecFailure, stillGivesAPort) {
    FdCapture told(STDOUT_FILENO);
    SExtPortPlugInOutInfo port{};
    port.plugState = 7;
    EXPECT_EQ(linux_tv_HdmiCEC_getDevicePortByIndex(&port, 4), -1);
    EXPECT_EQ(port.externalPort.inputPort, INPUT_PORT_HDMI);
    EXPECT_EQ(port.externalPort.inputDev.hdmiDev, 0U);
    EXPECT_EQ(port.plugState, 0);
    EXPECT_EQ(told.take(), "linux_tv_HdmiCEC_getDevicePortByIndex not find\n");
}

} // namespace
} // namespace kelutv::test
