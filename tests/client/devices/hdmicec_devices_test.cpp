#include "CecDevices.h"
#include "client/ClientTest.h"

#include <kelutv/HdmiCEC.h>
#include <kelutv/linux_kelutv_hdmicec.h>

#include <unistd.h>

#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using Device = KELU_TV_CEC_DEVICE_INFO_SORTED_S;
using Devices = std::vector<Device>;

const Device kPlayer{4, 0, "1.0.0.0", "Player", "HDMI1: Player"};
const Device kAmplifier{5, 2, "3.0.0.0", "", "HDMI3: Amplifier"};
constexpr char kPlayerTold[] = "D/HdmiCEC getDeviceListInfo() --> Device: logAddr = 4, port = 0, name = Player, "
                               "phyAddr = 1.0.0.0, text = HDMI1: Player\n";

std::string shown(const Device& device) {
    return std::to_string(device.logAddr) + "/" + std::to_string(device.hdmiDevPort) + "/" + device.phyAddr + "/" +
           device.deVName + "/" + device.hdmiListText;
}

std::vector<std::string> shown(const Devices& devices) {
    std::vector<std::string> texts;
    for (const Device& device : devices) {
        texts.push_back(shown(device));
    }
    return texts;
}

class CecDeviceList : public ClientTest {
protected:
    /** What a list holds after an answer of one device and these bytes. */
    std::vector<std::string> afterPlayerAnd(const Bytes& rest) {
        Bytes reply = devicesReply({kPlayer}).bytes();
        reply.insert(reply.end(), rest.begin(), rest.end());
        service().reply(reply);
        Devices devices;
        EXPECT_EQ(HdmiCEC::instance()->getDeviceListInfo(&devices), 0);
        EXPECT_EQ(mTold.take(), kPlayerTold);
        return shown(devices);
    }

    FdCapture mTold{STDERR_FILENO};
    const std::vector<std::string> mPlayerOnly{shown(kPlayer)};
};

// irregular: HdmiCEC::getDeviceListInfo
TEST_F(CecDeviceList, growsInTheOrderOfTheAnswer) {
    Devices devices{{1, 9, "a", "b", "c"}, {2, 8, "d", "e", "f"}};
    service().reply(devicesReply({kAmplifier, kPlayer, kAmplifier}).bytes());
    EXPECT_EQ(HdmiCEC::instance()->getDeviceListInfo(&devices), 0);
    EXPECT_EQ(sent(), only(requestOf(0x5018)));
    EXPECT_EQ(shown(devices),
              (std::vector<std::string>{"1/9/a/b/c", "2/8/d/e/f", "5/2/3.0.0.0//HDMI3: Amplifier",
                                        "4/0/1.0.0.0/Player/HDMI1: Player", "5/2/3.0.0.0//HDMI3: Amplifier"}));
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(CecDeviceList, isToldDeviceByDevice) {
    Devices devices;
    service().reply(devicesReply({kPlayer, {0xFFFFFFFEU, 0x80000000U, "p", "n", "t"}}).bytes());
    HdmiCEC::instance()->getDeviceListInfo(&devices);
    EXPECT_EQ(mTold.take(), std::string(kPlayerTold) +
                                "D/HdmiCEC getDeviceListInfo() --> Device: logAddr = -2, port = -2147483648, name = n, "
                                "phyAddr = p, text = t\n");
    EXPECT_EQ(devices[1].logAddr, 0xFFFFFFFEU);
    EXPECT_EQ(devices[1].hdmiDevPort, 0x80000000U);
}

// irregular: linux_tv_HdmiCEC_getDeviceListInfo
TEST_F(CecDeviceList, isHandedOnInC) {
    Devices devices{kAmplifier};
    service().reply(devicesReply({kPlayer}).bytes());
    EXPECT_EQ(linux_tv_HdmiCEC_getDeviceListInfo(&devices), 0);
    EXPECT_EQ(shown(devices), (std::vector<std::string>{shown(kAmplifier), shown(kPlayer)}));
    sent();
    EXPECT_EQ(linux_tv_HdmiCEC_getDeviceListInfo(nullptr), -1);
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(CecDeviceList, staysAsItIsForAnEmptyAnswer) {
    Devices devices{kPlayer};
    answer({0});
    EXPECT_EQ(HdmiCEC::instance()->getDeviceListInfo(&devices), 0);
    EXPECT_EQ(shown(devices), mPlayerOnly);
    EXPECT_EQ(mTold.take(), "");
}

TEST_F(CecDeviceList, staysWhereItIsForAnAnswerWithoutADevice) {
    Devices devices{kPlayer, kAmplifier};
    devices.shrink_to_fit();
    const Device* const place = devices.data();
    const std::size_t capacity = devices.capacity();
    for (const Wire& reply : {Wire::reply().i32(0), Wire::reply().i32(0).i32(5).i32(2).cstr("name")}) {
        service().reply(reply.bytes());
        EXPECT_EQ(HdmiCEC::instance()->getDeviceListInfo(&devices), 0);
        EXPECT_EQ(devices.data(), place);
        EXPECT_EQ(devices.capacity(), capacity);
    }
}

TEST_F(CecDeviceList, staysAsItIsWhenTheServiceFails) {
    Devices devices{kPlayer};
    Bytes reply = devicesReply({kAmplifier}).bytes();
    reply[0] = 7;
    service().reply(reply);
    EXPECT_EQ(HdmiCEC::instance()->getDeviceListInfo(&devices), -1);
    EXPECT_EQ(shown(devices), mPlayerOnly);
    EXPECT_EQ(mTold.take(), "");
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(CecDeviceList, endsAtTrailingBytes) {
    EXPECT_EQ(afterPlayerAnd({0}), mPlayerOnly);
    EXPECT_EQ(afterPlayerAnd({1, 2}), mPlayerOnly);
    EXPECT_EQ(afterPlayerAnd({1, 2, 3}), mPlayerOnly);
}

TEST_F(CecDeviceList, endsAtADeviceThatLacksAField) {
    EXPECT_EQ(afterPlayerAnd(Wire::reply().i32(5).bytes()), mPlayerOnly);
    EXPECT_EQ(afterPlayerAnd(Wire::reply().i32(5).i32(2).bytes()), mPlayerOnly);
    EXPECT_EQ(afterPlayerAnd(Wire::reply().i32(5).i32(2).cstr("name").bytes()), mPlayerOnly);
    EXPECT_EQ(afterPlayerAnd(Wire::reply().i32(5).i32(2).cstr("name").cstr("3.0.0.0").bytes()), mPlayerOnly);
}

TEST_F(CecDeviceList, endsAtATextWithoutATerminator) {
    EXPECT_EQ(afterPlayerAnd(Wire::reply().i32(5).i32(2).raw("abcd", 4).bytes()), mPlayerOnly);
    EXPECT_EQ(afterPlayerAnd(Wire::reply().i32(5).i32(2).i32(-1).bytes()), mPlayerOnly);
    EXPECT_EQ(afterPlayerAnd(Wire::reply().i32(5).i32(2).cstr("n").cstr("p").raw("abcdefgh", 8).bytes()), mPlayerOnly);
}

TEST_F(CecDeviceList, takesZeroWordsForEmptyTexts) {
    EXPECT_EQ(afterPlayerAnd(Wire::reply().i32(5).i32(2).i32(0).i32(0).bytes()), mPlayerOnly);
    Devices devices;
    answer({0, 5, 2, 0, 0, 0, 6});
    EXPECT_EQ(HdmiCEC::instance()->getDeviceListInfo(&devices), 0);
    EXPECT_EQ(shown(devices), (std::vector<std::string>{"5/2///"}));
}

} // namespace
} // namespace kelutv::test
