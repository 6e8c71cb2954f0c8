#include "CecDevices.h"
#include "client/ClientTest.h"

#include <kelutv/linux_kelutv_hdmicec.h>

#include <kqcommon/ExtPort.h>

#include <unistd.h>

#include <ostream>
#include <string>

namespace kelutv::test {
namespace {

constexpr char kNotFound[] = "linux_tv_HdmiCEC_getDevicePortByIndex not find\n";

struct Port {
    int kind;
    unsigned int device;
};

bool operator==(const Port& a, const Port& b) { return a.kind == b.kind && a.device == b.device; }

std::ostream& operator<<(std::ostream& out, const Port& port) { return out << port.kind << ":" << port.device; }

// irregular: linux_tv_HdmiCEC_getDevicePortByIndex
class CecDevicePort : public ClientTest {
protected:
    /** The port of a logical address, and the result that comes with it. */
    Port portOf(unsigned int logAddr, int result = 0) {
        SExtPortPlugInOutInfo port{};
        port.externalPort.inputPort = INPUT_PORT_SCART;
        port.externalPort.inputDev.hdmiDev = 99;
        EXPECT_EQ(linux_tv_HdmiCEC_getDevicePortByIndex(&port, logAddr), result);
        EXPECT_EQ(sent(), only(requestOf(0x5018)));
        return {port.externalPort.inputPort, port.externalPort.inputDev.hdmiDev};
    }

    FdCapture mTold{STDOUT_FILENO};
    FdCapture mTrace{STDERR_FILENO};
};

TEST_F(CecDevicePort, isFoundByLogicalAddress) {
    service().reply(devicesReply({{4, 0, "", "", ""}, {8, 1, "", "", ""}, {1, 3, "", "", ""}}).bytes());
    EXPECT_EQ(portOf(4), (Port{INPUT_PORT_HDMI, 0}));
    EXPECT_EQ(portOf(8), (Port{INPUT_PORT_HDMI, 1}));
    EXPECT_EQ(portOf(1), (Port{INPUT_PORT_HDMI, 3}));
    EXPECT_EQ(mTold.take(), "");
}

TEST_F(CecDevicePort, isThatOfTheFirstOfTwo) {
    service().reply(devicesReply({{7, 3, "", "", ""}, {4, 2, "", "", ""}, {4, 1, "", "", ""}}).bytes());
    EXPECT_EQ(portOf(4), (Port{INPUT_PORT_HDMI, 2}));
}

TEST_F(CecDevicePort, isTheFirstInputForAnUnknownDevice) {
    service().reply(devicesReply({{4, 2, "", "", ""}, {5, 3, "", "", ""}}).bytes());
    EXPECT_EQ(portOf(0), (Port{INPUT_PORT_HDMI, 0}));
    EXPECT_EQ(mTold.take(), kNotFound);
    answer({0});
    EXPECT_EQ(portOf(4), (Port{INPUT_PORT_HDMI, 0}));
    EXPECT_EQ(mTold.take(), kNotFound);
}

TEST_F(CecDevicePort, isTheFirstInputWhenTheServiceFails) {
    answer({3, 4, 2, 0, 0, 0});
    EXPECT_EQ(portOf(4, -1), (Port{INPUT_PORT_HDMI, 0}));
    EXPECT_EQ(mTold.take(), kNotFound);
}

TEST_F(CecDevicePort, isNotHeldToTheHdmiInputs) {
    service().reply(devicesReply({{4, 4, "", "", ""},
                                  {5, 0xFFFFFFFFU, "", "", ""},
                                  {6, 0xFFFFFFF7U, "", "", ""},
                                  {7, 0x7FFFFFFFU, "", "", ""}})
                        .bytes());
    EXPECT_EQ(portOf(4), (Port{INPUT_PORT_MEDIA, 0}));
    EXPECT_EQ(portOf(5), (Port{INPUT_PORT_YPBPR, 1}));
    EXPECT_EQ(portOf(6), (Port{INPUT_PORT_TUNER, 0}));
    EXPECT_EQ(portOf(7), (Port{INPUT_PORT_NONE, 0}));
    EXPECT_EQ(mTold.take(), "");
}

TEST_F(CecDevicePort, mayBeDropped) {
    service().reply(devicesReply({{4, 1, "", "", ""}}).bytes());
    EXPECT_EQ(linux_tv_HdmiCEC_getDevicePortByIndex(nullptr, 4), 0);
    EXPECT_EQ(linux_tv_HdmiCEC_getDevicePortByIndex(nullptr, 5), 0);
    answer({3});
    EXPECT_EQ(linux_tv_HdmiCEC_getDevicePortByIndex(nullptr, 4), -1);
}

} // namespace
} // namespace kelutv::test
