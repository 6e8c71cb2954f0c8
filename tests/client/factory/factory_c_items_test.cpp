#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/linux_kelutv_factory.h>

#include <unistd.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace kelutv::test {
namespace {

Bytes itemSet(int item, std::int32_t param1 = 0, std::int32_t param2 = 0) {
    return requestOf(0x90C1, {item, param1, param2, 0, 0});
}

Bytes itemGet(int item, std::int32_t param1 = 0) { return requestOf(0x90C2, {item, param1, 0}); }

using FactoryItem = ClientTest;

template <typename Function> struct ItemFunction {
    int item;
    Function function;
};

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
