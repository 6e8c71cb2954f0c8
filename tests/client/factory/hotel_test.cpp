#include "client/ClientTest.h"
#include "client/Untouched.h"

#include <kelutv/linux_kelutv_hotel.h>

namespace kelutv::test {
namespace {

Bytes itemSet(int item, std::int32_t param1 = 0, std::int32_t param2 = 0) {
    return requestOf(0x90C1, {item, param1, param2, 0, 0});
}

Bytes itemGet(int item) { return requestOf(0x90C2, {item, 0, 0}); }

using Hotel = ClientTest;

template <typename Value> struct Setting {
    int setItem;
    int (*set)(Value);
    int getItem;
    int (*get)(Value*);
};

TEST_F(Hotel, switchesAreSetAndRead) {
    const Setting<bool> settings[] = {
        {36925, SetHotelEnable, 36926, GetHotelEnable},
        {36964, SetHotelKeypadEnable, 36963, GetHotelKeypadEnable},
        {36927, SetHotelSetupMenuEnable, 36928, GetHotelSetupMenuEnable},
    };
    for (const Setting<bool>& setting : settings) {
        answer({5});
        EXPECT_EQ(setting.set(true), 5) << setting.setItem;
        EXPECT_EQ(sent(), only(itemSet(setting.setItem, 1)));
        EXPECT_EQ(setting.set(false), 5);
        EXPECT_EQ(sent(), only(itemSet(setting.setItem, 0)));
        bool enabled = false;
        answer({0, -3});
        EXPECT_EQ(setting.get(&enabled), 0) << setting.getItem;
        EXPECT_EQ(sent(), only(itemGet(setting.getItem)));
        EXPECT_TRUE(enabled);
        answer({3, 1});
        EXPECT_EQ(setting.get(&enabled), -1);
        EXPECT_FALSE(enabled);
        answer({0, 1});
        EXPECT_EQ(setting.get(nullptr), 0);
        sent();
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(Hotel, valuesAreSetAndRead) {
    const Setting<int> settings[] = {
        {36966, SetHotelMaxVolume, 36965, GetHotelMaxVolume},
        {36968, SetHotelBootVolume, 36967, GetHotelBootVolume},
        {36970, SetHotelBootSrc, 36969, GetHotelBootSrc},
    };
    for (const Setting<int>& setting : settings) {
        answer({5});
        EXPECT_EQ(setting.set(-40), 5) << setting.setItem;
        EXPECT_EQ(sent(), only(itemSet(setting.setItem, -40)));
        int value = kUntouched;
        answer({0, 41, 42});
        EXPECT_EQ(setting.get(&value), 0) << setting.getItem;
        EXPECT_EQ(sent(), only(itemGet(setting.getItem)));
        EXPECT_EQ(value, 41);
        answer({3, 41});
        EXPECT_EQ(setting.get(&value), -1);
        EXPECT_EQ(value, 0);
        EXPECT_EQ(setting.get(nullptr), -1);
        sent();
    }
}

TEST_F(Hotel, theChannelIsTwoNumbers) {
    answer({5});
    EXPECT_EQ(SetHotelBootChannel(2, 17), 5);
    EXPECT_EQ(sent(), only(itemSet(36972, 2, 17)));
    int mode = kUntouched;
    int channel = kUntouched;
    answer({0, 3, -18, 4});
    EXPECT_EQ(GetHotelBootChannel(&mode, &channel), 0);
    EXPECT_EQ(sent(), only(itemGet(36971)));
    EXPECT_EQ(mode, 3);
    EXPECT_EQ(channel, -18);
    EXPECT_EQ(GetHotelBootChannel(nullptr, &channel), 0);
    EXPECT_EQ(GetHotelBootChannel(&mode, nullptr), 0);
    answer({3, 3, -18});
    EXPECT_EQ(GetHotelBootChannel(&mode, &channel), -1);
    EXPECT_EQ(mode, 0);
    EXPECT_EQ(channel, 0);
}

} // namespace
} // namespace kelutv::test
