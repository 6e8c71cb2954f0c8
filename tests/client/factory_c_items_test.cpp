#include "ClientTest.h"

#include <kelutv/linux_kelutv_factory.h>

#include <unistd.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace kelutv::test {
namespace {

constexpr int kUntouched = 0x5A5A5A5A;

Bytes itemSet(int item, std::int32_t param1 = 0, std::int32_t param2 = 0) {
    return requestOf(0x90C1, {item, param1, param2, 0, 0});
}

Bytes itemGet(int item, std::int32_t param1 = 0) { return requestOf(0x90C2, {item, param1, 0}); }

/** The text travels before the second number. */
Bytes textSet(int item, const char* text, std::int32_t param1 = 0) {
    return Wire::request(0x90C3).i32(item).i32(param1).cstr(text).i32(0).bytes();
}

Bytes textGet(int item, std::int32_t param1 = 0) { return requestOf(0x90C4, {item, param1, 0}); }

using FactoryItem = ClientTest;

template <typename Function> struct ItemFunction {
    int item;
    Function function;
};

TEST_F(FactoryItem, numbersAreSet) {
    const ItemFunction<int (*)(int)> setters[] = {
        {36953, linux_tv_Factory_setPanelSwing},    {36913, linux_tv_Factory_setCountry},
        {36909, linux_tv_Factory_setBootLogoIndex}, {36938, linux_tv_factory_setLvdsPort},
        {36980, linux_tv_Factory_setLVDSTIBitMode},
    };
    answer({5});
    for (const auto& setter : setters) {
        EXPECT_EQ(setter.function(-17), 5) << setter.item;
        EXPECT_EQ(sent(), only(itemSet(setter.item, -17)));
    }
    EXPECT_EQ(linux_tv_factory_setPanelSequence(3, 4), 5);
    EXPECT_EQ(sent(), only(itemSet(36940, 3, 4)));
}

TEST_F(FactoryItem, flagsAreSetAsZeroOrOne) {
    const ItemFunction<int (*)(bool)> setters[] = {
        {36895, linux_tv_Factory_setHotkeyMode},         {36911, linux_tv_Factory_setTIMode},
        {36921, linux_tv_Factory_setBluetoothEnable},    {36919, linux_tv_Factory_setCIEnable},
        {36917, linux_tv_Factory_setPVREnable},          {36915, linux_tv_Factory_setAlexaEnable},
        {36956, linux_tv_Factory_setVoiceEnable},        {36958, linux_tv_Factory_setVoiceCuesEnable},
        {36960, linux_tv_Factory_setPresentationEnable}, {36982, linux_tv_Factory_setBacklightInversion},
    };
    answer({5});
    for (const auto& setter : setters) {
        EXPECT_EQ(setter.function(true), 5) << setter.item;
        EXPECT_EQ(sent(), only(itemSet(setter.item, 1)));
        EXPECT_EQ(setter.function(false), 5);
        EXPECT_EQ(sent(), only(itemSet(setter.item, 0)));
    }
}

TEST_F(FactoryItem, ordersCarryFourZeros) {
    answer({5});
    EXPECT_EQ(linux_tv_Factory_deletePresentationData(), 5);
    EXPECT_EQ(sent(), only(itemSet(36929)));
    EXPECT_EQ(linux_tv_Factory_restoreADC(), 5);
    EXPECT_EQ(sent(), only(itemSet(36954)));
}

TEST_F(FactoryItem, numbersAreReadAndZeroAfterAFailure) {
    const ItemFunction<int (*)(int*)> getters[] = {
        {36952, linux_tv_Factory_getPanelSwing},    {36893, linux_tv_Factory_getIrProtocol},
        {36902, linux_tv_Factory_getCountry},       {36903, linux_tv_Factory_getProductArea},
        {36904, linux_tv_Factory_getCustomerName},  {36905, linux_tv_Factory_getUIStyle},
        {36906, linux_tv_Factory_getAPPStore},      {36910, linux_tv_Factory_getBootLogoIndex},
        {36934, linux_tv_Factory_getKeyPadType},    {36939, linux_tv_factory_getLvdsPort},
        {36981, linux_tv_Factory_getLVDSTIBitMode},
    };
    for (const auto& getter : getters) {
        int value = kUntouched;
        answer({0, -3, 4});
        EXPECT_EQ(getter.function(&value), 0) << getter.item;
        EXPECT_EQ(sent(), only(itemGet(getter.item)));
        EXPECT_EQ(value, -3);
        EXPECT_EQ(getter.function(nullptr), 0);
        answer({3, 7});
        EXPECT_EQ(getter.function(&value), -1);
        EXPECT_EQ(value, 0);
        EXPECT_EQ(getter.function(nullptr), -1);
        sent();
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(FactoryItem, thePanelSequenceIsReadByItsType) {
    int value = kUntouched;
    answer({0, 9});
    EXPECT_EQ(linux_tv_factory_getPanelSequence(6, &value), 0);
    EXPECT_EQ(sent(), only(itemGet(36941, 6)));
    EXPECT_EQ(value, 9);
}

TEST_F(FactoryItem, flagsAreReadAndFalseAfterAFailure) {
    const ItemFunction<int (*)(bool*)> getters[] = {
        {36896, linux_tv_Factory_getHotkeyMode},         {36912, linux_tv_Factory_getTIMode},
        {36922, linux_tv_Factory_getBluetoothEnable},    {36920, linux_tv_Factory_getCIEnable},
        {36918, linux_tv_Factory_getPVREnable},          {36916, linux_tv_Factory_getAlexaEnable},
        {36957, linux_tv_Factory_getVoiceEnable},        {36959, linux_tv_Factory_getVoiceCuesEnable},
        {36961, linux_tv_Factory_getPresentationEnable}, {36983, linux_tv_Factory_getBacklightInversion},
    };
    for (const auto& getter : getters) {
        bool flag = false;
        answer({0, -3});
        EXPECT_EQ(getter.function(&flag), 0) << getter.item;
        EXPECT_EQ(sent(), only(itemGet(getter.item)));
        EXPECT_TRUE(flag);
        EXPECT_EQ(getter.function(nullptr), 0);
        answer({3, 1});
        EXPECT_EQ(getter.function(&flag), -1);
        EXPECT_FALSE(flag);
        sent();
    }
}

TEST_F(FactoryItem, aKeyIsBurntOrNot) {
    bool burned = false;
    answer({0, 2});
    EXPECT_EQ(linux_tv_Factory_getKeyBurnStatus(KELU_TV_MUL_KEY_HDCP22, &burned), 0);
    EXPECT_EQ(sent(), only(itemGet(36951, 3)));
    EXPECT_TRUE(burned);
    answer({1, 2});
    EXPECT_EQ(linux_tv_Factory_getKeyBurnStatus(KELU_TV_MUL_KEY_HDCP22, &burned), -1);
    EXPECT_FALSE(burned);
}

// irregular: linux_tv_Factory_getKeySupportStatus
TEST_F(FactoryItem, theSupportOfAKeyIsReadBehindAPrintedLine) {
    bool supported = false;
    FdCapture output(STDOUT_FILENO);
    answer({0, 2});
    EXPECT_EQ(linux_tv_Factory_getKeySupportStatus(12, &supported), 0);
    EXPECT_EQ(output.take(), "getKeySupportStatus keyType = 12\n");
    EXPECT_EQ(sent(), only(itemGet(36979, 12)));
    EXPECT_TRUE(supported);
    answer({3, 2});
    EXPECT_EQ(linux_tv_Factory_getKeySupportStatus(12, &supported), -1);
    EXPECT_FALSE(supported);
    EXPECT_EQ(output.take(), "getKeySupportStatus keyType = 12\n");
    sent();
    EXPECT_EQ(linux_tv_Factory_getKeySupportStatus(-1, nullptr), -1);
    EXPECT_EQ(output.take(), "getKeySupportStatus keyType = -1\ngetKeySupportStatus param is null");
    EXPECT_EQ(sent(), kNothingSent);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(FactoryItem, theTemperatureIsReadNowAndAtItsHighest) {
    int value = kUntouched;
    answer({0, 61});
    EXPECT_EQ(linux_tv_Factory_getCurrentTemperature(&value), 0);
    EXPECT_EQ(sent(), only(itemGet(37160, 0)));
    EXPECT_EQ(value, 61);
    answer({0, 88});
    EXPECT_EQ(linux_tv_Factory_getHistoryMaxTemperature(&value), 0);
    EXPECT_EQ(sent(), only(itemGet(37160, 2)));
    EXPECT_EQ(value, 88);
    answer({1, 88});
    EXPECT_EQ(linux_tv_Factory_getCurrentTemperature(&value), -1);
    EXPECT_EQ(value, 0);
    value = kUntouched;
    EXPECT_EQ(linux_tv_Factory_getHistoryMaxTemperature(&value), -1);
    EXPECT_EQ(value, 0);
}

TEST_F(FactoryItem, textsAreSet) {
    const ItemFunction<int (*)(char*)> setters[] = {
        {36930, linux_tv_Factory_copyPresentationData}, {36931, linux_tv_Factory_copyMWDB2USB},
        {36932, linux_tv_Factory_copyUSBDB2MW},         {36933, linux_tv_Factory_updateBootLogo},
        {36937, linux_tv_Factory_exportSeparatedData},  {36974, linux_tv_Factory_importSeparatedData},
        {36946, linux_tv_factory_presetChannel},        {36950, linux_tv_Factory_setSeaAllKeyBurn},
        {36977, linux_tv_Factory_sendSelfCheckData},    {36978, linux_tv_Factory_upgradeFlashEEPROMCheck},
    };
    char text[] = "/mnt/usb";
    answer({5});
    for (const auto& setter : setters) {
        EXPECT_EQ(setter.function(text), 5) << setter.item;
        EXPECT_EQ(sent(), only(textSet(setter.item, "/mnt/usb")));
    }
}

TEST_F(FactoryItem, textsAreSetWithANumberBeforeThem) {
    char text[] = "abc";
    answer({5});
    EXPECT_EQ(linux_tv_Factory_setMachineInfo(5, text), 5);
    EXPECT_EQ(sent(), only(textSet(36898, "abc", 5)));
    EXPECT_EQ(linux_tv_factory_copyPresetChannelDB2MW(text, 6), 5);
    EXPECT_EQ(sent(), only(textSet(36945, "abc", 6)));
    EXPECT_EQ(linux_tv_factory_copyPresetChannelDB2USB(text, 7), 5);
    EXPECT_EQ(sent(), only(textSet(36944, "abc", 7)));
    EXPECT_EQ(linux_tv_Factory_setOtaUpdate(text, true), 5);
    EXPECT_EQ(sent(), only(textSet(36962, "abc", 1)));
    EXPECT_EQ(linux_tv_Factory_setOtaUpdate(text, false), 5);
    EXPECT_EQ(sent(), only(textSet(36962, "abc", 0)));
}

TEST_F(FactoryItem, textsAreReadAndKeptAfterAFailure) {
    const ItemFunction<int (*)(char*)> getters[] = {
        {36900, linux_tv_Factory_getProductNumber},   {36901, linux_tv_Factory_getOrderNumber},
        {36908, linux_tv_Factory_getSeperateDataVer}, {36923, linux_tv_Factory_getDeveloperID},
        {36924, linux_tv_Factory_getProductID},       {36975, linux_tv_Factory_getPanelSize},
        {36976, linux_tv_Factory_getPanelInfo},
    };
    for (const auto& getter : getters) {
        char text[16] = "untouched";
        service().reply(Wire::reply().i32(3).cstr("no").bytes());
        EXPECT_EQ(getter.function(text), -1) << getter.item;
        EXPECT_STREQ(text, "untouched");
        service().reply(Wire::reply().i32(0).cstr("K-55").bytes());
        sent();
        EXPECT_EQ(getter.function(text), 0);
        EXPECT_EQ(sent(), only(textGet(getter.item)));
        EXPECT_STREQ(text, "K-55");
        EXPECT_EQ(getter.function(nullptr), -1);
        EXPECT_EQ(sent(), kNothingSent);
    }
}

TEST_F(FactoryItem, textsAreReadByTheirNumber) {
    char text[16] = "untouched";
    service().reply(Wire::reply().i32(0).cstr("1234").bytes());
    EXPECT_EQ(linux_tv_Factory_getPassWord(KELU_TV_PASSWORD_TYPE_HOTEL, text), 0);
    EXPECT_EQ(sent(), only(textGet(36907, 2)));
    EXPECT_STREQ(text, "1234");
    service().reply(Wire::reply().i32(0).cstr("brand").bytes());
    EXPECT_EQ(linux_tv_Factory_getMachineInfo(KELU_TV_MACHINE_INFO_BRAND_NAME, text), 0);
    EXPECT_EQ(sent(), only(textGet(36899, 5)));
    EXPECT_STREQ(text, "brand");
}

struct Gain {
    double value;
    int whole;
    int thousandths;
};

// irregular: linux_tv_Factory_setAvcGain
TEST_F(FactoryItem, theGainIsSentInTwoPartsCutTowardsZero) {
    answer({5});
    for (const Gain& gain : {Gain{1.25, 1, 250}, Gain{2.3, 2, 299}, Gain{-1.25, -1, -250}, Gain{-0.5, 0, -500},
                             Gain{0.0, 0, 0}, Gain{7.0, 7, 0}, Gain{0.9999, 0, 999}}) {
        EXPECT_EQ(linux_tv_Factory_setAvcGain(gain.value), 5) << gain.value;
        EXPECT_EQ(sent(), only(itemSet(36936, gain.whole, gain.thousandths)));
    }
}

TEST_F(FactoryItem, theGainThatNoIntHoldsIsTheNearestOne) {
    constexpr int kMost = std::numeric_limits<int>::max();
    constexpr int kLeast = std::numeric_limits<int>::min();
    for (const Gain& gain :
         {Gain{1e300, kMost, 0}, Gain{-1e300, kLeast, 0}, Gain{HUGE_VAL, kMost, 0}, Gain{-HUGE_VAL, kLeast, 0},
          Gain{std::nan(""), 0, 0}, Gain{2147483648.5, kMost, 500}, Gain{-2147483648.0, kLeast, 0}}) {
        linux_tv_Factory_setAvcGain(gain.value);
        EXPECT_EQ(sent(), only(itemSet(36936, gain.whole, gain.thousandths))) << gain.value;
    }
}

// irregular: linux_tv_Factory_getAvcGain
TEST_F(FactoryItem, theGainIsReadFromTwoParts) {
    double gain = 99;
    answer({0, 2, 299, 7});
    EXPECT_EQ(linux_tv_Factory_getAvcGain(&gain), 0);
    EXPECT_EQ(sent(), only(itemGet(36935)));
    EXPECT_EQ(gain, 2 + 299 / 1000.0);
    answer({0, -1, -250});
    EXPECT_EQ(linux_tv_Factory_getAvcGain(&gain), 0);
    EXPECT_EQ(gain, -1.25);
    EXPECT_EQ(linux_tv_Factory_getAvcGain(nullptr), 0);
    answer({3, 2, 299});
    EXPECT_EQ(linux_tv_Factory_getAvcGain(&gain), -1);
    EXPECT_EQ(gain, 0);
}

/** A list that is led by its count. */
class FactoryList : public ClientTest, public ::testing::WithParamInterface<ItemFunction<int (*)(int*, int*)>> {
protected:
    FactoryList() { list.fill(kUntouched); }

    int read() { return GetParam().function(list.data(), &size); }

    std::array<int, 256> list{};
    int size = kUntouched;
};

// irregular: linux_tv_Factory_getCountryList
// irregular: linux_tv_Factory_getFrontendList
TEST_P(FactoryList, isStoredWithItsCount) {
    answer({0, 3, 71, -72, 73, 74});
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(sent(), only(itemGet(GetParam().item)));
    EXPECT_EQ(size, 3);
    EXPECT_EQ(list[0], 71);
    EXPECT_EQ(list[1], -72);
    EXPECT_EQ(list[2], 73);
    EXPECT_EQ(list[3], kUntouched);
}

TEST_P(FactoryList, mayBeEmpty) {
    answer({0, 0, 71});
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(list[0], kUntouched);
}

TEST_P(FactoryList, keepsACountBelowZeroAndCopiesNothing) {
    answer({0, -2, 71});
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(size, -2);
    EXPECT_EQ(list[0], kUntouched);
}

TEST_P(FactoryList, holdsNoMoreThanAnAnswer) {
    for (const int count : {255, 1000, std::numeric_limits<int>::max()}) {
        Wire reply = Wire::reply().i32(0).i32(count);
        for (int i = 1; i <= 300; ++i) {
            reply.i32(i);
        }
        service().reply(reply.bytes());
        EXPECT_EQ(read(), 0);
        EXPECT_EQ(size, count);
        EXPECT_EQ(list[253], 254);
        EXPECT_EQ(list[254], kUntouched);
    }
}

TEST_P(FactoryList, isEmptyAfterAFailure) {
    answer({3, 2, 71, 72});
    EXPECT_EQ(read(), -1);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(list[0], kUntouched);
}

TEST_P(FactoryList, mayHaveNoPlace) {
    answer({0, 2, 71, 72});
    EXPECT_EQ(GetParam().function(nullptr, &size), 0);
    EXPECT_EQ(size, 2);
    EXPECT_EQ(GetParam().function(list.data(), nullptr), 0);
    EXPECT_EQ(list[1], 72);
    EXPECT_EQ(GetParam().function(nullptr, nullptr), 0);
}

INSTANTIATE_TEST_SUITE_P(Factory, FactoryList,
                         ::testing::Values(ItemFunction<int (*)(int*, int*)>{36914, linux_tv_Factory_getCountryList},
                                           ItemFunction<int (*)(int*, int*)>{36949, linux_tv_Factory_getFrontendList}),
                         [](const auto& each) { return "item" + std::to_string(each.param.item); });

} // namespace
} // namespace kelutv::test
