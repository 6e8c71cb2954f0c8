#include <kelutv/Factory.h>
#include <kelutv/linux_kelutv_factory.h>
#include <kelutv/linux_kelutv_hotel.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

/**
 * A program may put its own definitions before those of the library. This one stands in for the functions that others
 * are built on, so that their calls are seen; nothing reaches the link.
 */

namespace {

std::vector<std::string> gCalls;

int note(const std::string& call) {
    gCalls.push_back(call);
    return 5;
}

std::string numbers(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values) {
        text += " " + std::to_string(value);
    }
    return text;
}

} // namespace

int Factory::setFactoryItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return note("method set" + numbers({cmdID, param1, param2, param3, param4}));
}

int Factory::getFactoryItemValue(int cmdID, int param1, int param2, int* pData) {
    pData[0] = 71;
    pData[254] = 72;
    return note("method get" + numbers({cmdID, param1, param2}));
}

int Factory::setFactoryItemStrValue(int cmdID, int param1, int param2, char const* stringParam) {
    return note("method set text" + numbers({cmdID, param1, param2}) + " " + stringParam);
}

int Factory::getFactoryItemStrValue(int cmdID, int param1, int param2, char* data) {
    data[0] = 'x';
    return note("method get text" + numbers({cmdID, param1, param2}));
}

int linux_tv_Factory_setFactoryItemValue(int cmdID, int param1, int param2, int param3, int param4) {
    return note("function set" + numbers({cmdID, param1, param2, param3, param4}));
}

int linux_tv_Factory_getFactoryItemValue(int cmdID, int param1, int param2, int* pBuf) {
    pBuf[0] = 81;
    pBuf[1] = 82;
    pBuf[254] = 83;
    return note("function get" + numbers({cmdID, param1, param2}));
}

int linux_tv_Factory_operateFlashEEPROM(int oper, const char* pathName) {
    return note("function EEPROM" + numbers({oper}) + " " + (pathName == nullptr ? "null" : pathName));
}

int linux_tv_Factory_setWhiteBalanceColor(bool onoff, int red, int green, int blue) {
    return note("function colour" + numbers({onoff, red, green, blue}) + " after" +
                numbers({linux_tv_Factory_getWBWhitePattern()}));
}

namespace kelutv::test {
namespace {

std::vector<std::string> calls() { return std::exchange(gCalls, {}); }

std::vector<std::string> only(const char* call) { return {call}; }

TEST(FactoryLayers, itemFunctionsCallTheClass) {
    int value = 0;
    bool flag = false;
    char text[] = "abc";
    EXPECT_EQ(linux_tv_Factory_setCountry(3), 5);
    EXPECT_EQ(calls(), only("method set 36913 3 0 0 0"));
    EXPECT_EQ(linux_tv_Factory_getCountry(&value), 5);
    EXPECT_EQ(calls(), only("method get 36902 0 0"));
    EXPECT_EQ(value, 71);
    EXPECT_EQ(linux_tv_Factory_getKeyBurnStatus(4, &flag), 5);
    EXPECT_EQ(calls(), only("method get 36951 4 0"));
    EXPECT_TRUE(flag);
    EXPECT_EQ(linux_tv_Factory_setMachineInfo(6, text), 5);
    EXPECT_EQ(calls(), only("method set text 36898 6 0 abc"));
    EXPECT_EQ(linux_tv_Factory_getProductID(text), 5);
    EXPECT_EQ(calls(), only("method get text 36924 0 0"));
    EXPECT_STREQ(text, "xbc");
}

TEST(FactoryLayers, hotelFunctionsCallTheFactoryFunctions) {
    int value = 0;
    int second = 0;
    EXPECT_EQ(SetHotelEnable(true), 5);
    EXPECT_EQ(calls(), only("function set 36925 1 0 0 0"));
    EXPECT_EQ(GetHotelBootChannel(&value, &second), 5);
    EXPECT_EQ(calls(), only("function get 36971 0 0"));
    EXPECT_EQ(value, 81);
    EXPECT_EQ(second, 82);
    EXPECT_EQ(RestoreHotelSetting(), 5);
    EXPECT_EQ(calls(), only("function set 36973 0 0 0 0"));
    EXPECT_EQ(BackupHotelData2USB(nullptr), 5);
    EXPECT_EQ(calls(), only("function EEPROM 0 null"));
    EXPECT_EQ(RestoreHotelData2EEP("/mnt"), 5);
    EXPECT_EQ(calls(), only("function EEPROM 2 /mnt"));
}

TEST(FactoryLayers, thePatternIsZeroAtFirstAndKeptBehindTheCall) {
    EXPECT_EQ(linux_tv_Factory_getWBWhitePattern(), 0);
    EXPECT_EQ(linux_tv_Factory_setWBWhitePattern(2), 5);
    EXPECT_EQ(calls(), only("function colour 1 63 63 63 after 0"));
    EXPECT_EQ(linux_tv_Factory_setWBWhitePattern(0), 5);
    EXPECT_EQ(calls(), only("function colour 0 0 0 0 after 2"));
    EXPECT_EQ(linux_tv_Factory_getWBWhitePattern(), 0);
}

} // namespace
} // namespace kelutv::test
