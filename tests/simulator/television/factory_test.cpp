// The factory's side of the television: identity, keys, calibration and the hotel settings with their file.

#include "simulator/Simulator.h"
#include "support/TestFolder.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <list>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

auto& environmentOfFactory = SimulatorEnvironment::install();

constexpr int kOutOfRange = -107;
constexpr int kNotStored = -110;
constexpr int kNotRestored = -111;

using TextReader = int (*)(char*);

std::string textOf(TextReader reader) {
    char text[256] = "";
    EXPECT_EQ(reader(text), 0);
    return text;
}

class FactoryLine : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(linux_tv_Factory_restoreFactory(), 0); }
};

// The first test of the program: nothing is set yet.
TEST(FactoryAtFirst, TellsWhatTheSetIs) {
    EXPECT_EQ(textOf(linux_tv_Factory_getPlatform), "KTV-1000");
    EXPECT_EQ(textOf(linux_tv_Factory_getEepromDate), "2024-03-15");
    EXPECT_EQ(textOf(linux_tv_Factory_getBarCode), "TV550000000000000000001");
    EXPECT_EQ(textOf(linux_tv_Factory_getPanelID), "PANEL-55-4K-60");
    EXPECT_EQ(textOf(linux_tv_Factory_getMacAddress), "02:00:00:12:34:56");
    EXPECT_EQ(textOf(linux_tv_Factory_getEmmcID), "150100303132333435360123456789AB");
    EXPECT_EQ(textOf(linux_tv_Factory_getSocChipID), "0123456789ABCDEF");
    EXPECT_EQ(textOf(linux_tv_Factory_getPQBinVersion), "PQ-1.4.0");
    EXPECT_EQ(textOf(linux_tv_Factory_getNTPQPlatFormVer), "NTPQ-3.0");
    EXPECT_EQ(textOf(linux_tv_Factory_getEP9169PlatFormVer), "EP-1.1");
    EXPECT_EQ(textOf(linux_tv_Factory_getProductNumber), "55000001");
    EXPECT_EQ(textOf(linux_tv_Factory_getPanelSize), "55");
    char text[256] = "";
    EXPECT_EQ(linux_tv_Factory_getMachineInfo(KELU_TV_MACHINE_INFO_BRAND_NAME, text), 0);
    EXPECT_STREQ(text, "Sample");
    EXPECT_EQ(linux_tv_Factory_getDtvSn(KELU_TV_DTV_SN_CONFIG, text), 0);
    EXPECT_STREQ(text, "CONFIG-000001");
}

TEST(FactoryAtFirst, CountsAndHasItsOwnKeysBurned) {
    int numbers[32] = {};
    EXPECT_EQ(linux_tv_Factory_getSystemupTime(numbers), 0);
    EXPECT_EQ(numbers[1], 3600);
    EXPECT_EQ(linux_tv_Factory_getPlatFormSupportUsbNum(numbers), 0);
    EXPECT_EQ(numbers[0], 2);
    EXPECT_EQ(linux_tv_Factory_getCurrentTemperature(numbers), 0);
    EXPECT_EQ(numbers[0], 45);
    EXPECT_EQ(linux_tv_Factory_getBurnKeyStatus(numbers), 0);
    EXPECT_EQ(std::vector<int>(numbers, numbers + 4), (std::vector<int>{1, 1, 0, 0}));
    EXPECT_EQ(Factory::instance()->getBurnKeyType("/keys"), (std::list<int>{0, 1, 2, 3, 7, 13}));
    bool supported = true;
    EXPECT_EQ(linux_tv_Factory_getKeySupportStatus(KELU_TV_MUL_KEY_NETFLIX, &supported), 0);
    EXPECT_FALSE(supported);
    EXPECT_EQ(linux_tv_Factory_getIsBurnOtpRsa(), 0);
}

TEST_F(FactoryLine, MacAddressIsReadBackAsText) {
    int address[] = {0x02, 0xAB, 0x00, 0x0F, 0xFF, 0x10, 0};
    EXPECT_EQ(linux_tv_Factory_setMacAddress(address, 6), 0);
    EXPECT_EQ(textOf(linux_tv_Factory_getMacAddress), "02:AB:00:0F:FF:10");
    EXPECT_EQ(linux_tv_Factory_setMacAddress(address, 5), kOutOfRange);
    EXPECT_EQ(linux_tv_Factory_setMacAddress(address, 7), kOutOfRange);
    EXPECT_EQ(linux_tv_Factory_setMacAddress(address, 0), kOutOfRange);
    address[5] = 256;
    EXPECT_EQ(linux_tv_Factory_setMacAddress(address, 6), kOutOfRange);
    address[5] = -1;
    EXPECT_EQ(linux_tv_Factory_setMacAddress(address, 6), kOutOfRange);
    EXPECT_EQ(textOf(linux_tv_Factory_getMacAddress), "02:AB:00:0F:FF:10");
}

TEST_F(FactoryLine, KeysCountAsBurnedOnceTheyAreSet) {
    bool burned = true;
    EXPECT_EQ(linux_tv_Factory_getKeyBurnStatus(KELU_TV_MUL_KEY_HDCP22, &burned), 0);
    EXPECT_FALSE(burned);
    int key[] = {1, 2, 3};
    EXPECT_EQ(linux_tv_Factory_setKeyData(KELU_TV_MUL_KEY_HDCP22, key, 3, 6, 0), 0);
    EXPECT_EQ(linux_tv_Factory_getKeyBurnStatus(KELU_TV_MUL_KEY_HDCP22, &burned), 0);
    EXPECT_TRUE(burned);
    int status[32] = {};
    EXPECT_EQ(linux_tv_Factory_getBurnKeyStatus(status), 0);
    EXPECT_EQ(std::vector<int>(status, status + 5), (std::vector<int>{1, 1, 0, 1, 0}));
    EXPECT_EQ(linux_tv_Factory_setKeyData(KELU_TV_MUL_KEY_BUTT, key, 3, 6, 0), kOutOfRange);
    EXPECT_EQ(linux_tv_Factory_setKeyData(-1, key, 3, 6, 0), kOutOfRange);
}

TEST_F(FactoryLine, BurningTheOtpGivesTheSerialNumber) {
    char text[64] = "";
    EXPECT_EQ(linux_tv_Factory_setStbOtpBurn(KELU_TV_OPT_CA_TYPE_UNITEND, "key", text), 0);
    EXPECT_STREQ(text, "SN-000001");
    EXPECT_EQ(linux_tv_Factory_getIsBurnOtpRsa(), 1);
}

TEST_F(FactoryLine, CalibrationIsKeptPerKeyAndRestored) {
    const CalibrationInfo gains{1, 2, 3, 4, 5, 6};
    ASSERT_EQ(linux_tv_Factory_setADCGainOffset(KELU_TV_SRC_VGA, gains), 0);
    CalibrationInfo seen{};
    EXPECT_EQ(linux_tv_Factory_getADCGainOffset(KELU_TV_SRC_VGA, &seen), 0);
    EXPECT_EQ(seen.blueOffset, 6U);
    EXPECT_EQ(linux_tv_Factory_getADCGainOffset(KELU_TV_SRC_ATV, &seen), 0);
    EXPECT_EQ(seen.redGain, 128U);
    EXPECT_EQ(linux_tv_Factory_restoreADC(), 0);
    EXPECT_EQ(linux_tv_Factory_getADCGainOffset(KELU_TV_SRC_VGA, &seen), 0);
    EXPECT_EQ(seen.redGain, 128U);

    ASSERT_EQ(linux_tv_Factory_setColorTemp(KELU_TV_COLORTEMP_COOL, {9, 8, 7, -1, -2, -3}), 0);
    ColorTempData temperature{};
    EXPECT_EQ(linux_tv_Factory_getColorTemp(KELU_TV_COLORTEMP_COOL, &temperature), 0);
    EXPECT_EQ(temperature.blueOffset, -3);
    EXPECT_EQ(linux_tv_Factory_restoreColorTemp(), 0);
    EXPECT_EQ(linux_tv_Factory_getColorTemp(KELU_TV_COLORTEMP_COOL, &temperature), 0);
    EXPECT_EQ(temperature.redGain, 118);
}

TEST_F(FactoryLine, CurvesAndDataAreReadBack) {
    double curve[] = {0.5, 1.25, 2};
    EXPECT_EQ(Factory::instance()->setSoundCurve(curve, 3), 0);
    double points[4] = {9, 9, 9, 9};
    EXPECT_EQ(Factory::instance()->getSoundCurve(points, 4), 0);
    EXPECT_EQ(std::vector<double>(points, points + 4), (std::vector<double>{0.5, 1.25, 2, 0}));
    int data[] = {7, 8};
    EXPECT_EQ(linux_tv_Factory_setNetPortDataTransmission(1, data, 2, 15, 15), 0);
    int back[2] = {};
    EXPECT_EQ(linux_tv_Factory_getNetPortDataTransmission(1, 2, back), 0);
    EXPECT_EQ(std::vector<int>(back, back + 2), (std::vector<int>{7, 8}));
    EXPECT_EQ(linux_tv_Factory_setInternetTime("2025-01-02 03:04:05"), 0);
    EXPECT_EQ(textOf(linux_tv_Factory_getInternetTime), "2025-01-02 03:04:05");
}

TEST_F(FactoryLine, RestoringBringsSettingsBackAndLeavesIdentityAndKeys) {
    using Restore = int (*)();
    const Restore restores[] = {linux_tv_Factory_resetNVM, linux_tv_Factory_restoreFactory,
                                linux_tv_Factory_restoreFactorySetting};
    for (const Restore restore : restores) {
        int address[] = {2, 0, 0, 0, 0, 1};
        int key[] = {1};
        EXPECT_EQ(linux_tv_Factory_setMacAddress(address, 6), 0);
        EXPECT_EQ(linux_tv_Factory_setKeyData(KELU_TV_MUL_KEY_SN, key, 1, 1, 1), 0);
        EXPECT_EQ(linux_tv_Factory_setGamma(3), 0);
        EXPECT_EQ(SetHotelMaxVolume(30), 0);
        EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 35), 0);
        EXPECT_EQ(restore(), 0);
        EXPECT_EQ(linux_tv_Factory_getGamma(), 0);
        int volume = 0;
        EXPECT_EQ(GetHotelMaxVolume(&volume), 0);
        EXPECT_EQ(volume, 100);
        EXPECT_EQ(textOf(linux_tv_Factory_getMacAddress), "02:00:00:00:00:01");
        bool burned = false;
        EXPECT_EQ(linux_tv_Factory_getKeyBurnStatus(KELU_TV_MUL_KEY_SN, &burned), 0);
        EXPECT_TRUE(burned);
        EXPECT_EQ(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER), 35);
    }
}

TEST_F(FactoryLine, WhiteBalancePatternsAreSeenInTheTrace) {
    environmentOfFactory.simulator().takeTrace();
    EXPECT_EQ(linux_tv_Factory_setWhiteBalanceColor(true, 255, 128, 0), 0);
    EXPECT_EQ(linux_tv_Factory_setWhiteBalanceColor(false, 0, 0, 0), 0);
    const std::string caller = "[" + std::to_string(::getpid()) + "] CMD_FACTORY_SETWHITEBALANCECOLOR";
    EXPECT_EQ(environmentOfFactory.simulator().takeTrace(),
              (std::vector<std::string>{caller + "(onoff=1, red=255, green=128, blue=0) -> 0",
                                        caller + "(onoff=0, red=0, green=0, blue=0) -> 0"}));
}

/** Hotel settings with a folder for their files. */
class Hotel : public FactoryLine {
protected:
    void TearDown() override {
        ::unlink(mFile.c_str());
        EXPECT_TRUE(std::filesystem::is_empty(mFolder.path()));
    }

    static void furnish() {
        EXPECT_EQ(SetHotelEnable(true), 0);
        EXPECT_EQ(SetHotelKeypadEnable(false), 0);
        EXPECT_EQ(SetHotelSetupMenuEnable(false), 0);
        EXPECT_EQ(SetHotelMaxVolume(40), 0);
        EXPECT_EQ(SetHotelBootVolume(15), 0);
        EXPECT_EQ(SetHotelBootSrc(KELU_TV_SRC_HDMI2), 0);
        EXPECT_EQ(SetHotelBootChannel(1, -7), 0);
    }

    /** All settings in the order in which the file has them. */
    static std::vector<int> settings() {
        bool flags[3] = {};
        int numbers[5] = {};
        EXPECT_EQ(GetHotelEnable(&flags[0]), 0);
        EXPECT_EQ(GetHotelKeypadEnable(&flags[1]), 0);
        EXPECT_EQ(GetHotelSetupMenuEnable(&flags[2]), 0);
        EXPECT_EQ(GetHotelMaxVolume(&numbers[0]), 0);
        EXPECT_EQ(GetHotelBootVolume(&numbers[1]), 0);
        EXPECT_EQ(GetHotelBootSrc(&numbers[2]), 0);
        EXPECT_EQ(GetHotelBootChannel(&numbers[3], &numbers[4]), 0);
        std::vector<int> all(std::begin(flags), std::end(flags));
        all.insert(all.end(), std::begin(numbers), std::end(numbers));
        return all;
    }

    std::string content() const {
        std::ifstream file(mFile);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    void put(const std::string& text) const { std::ofstream(mFile) << text; }

    const TestFolder mFolder;
    const std::string mFile = mFolder.pathOf("hotel.txt");
};

const std::vector<int> kAtFirst{0, 1, 1, 100, 20, KELU_TV_SRC_ATV, 0, 0};
const std::vector<int> kFurnished{1, 0, 0, 40, 15, KELU_TV_SRC_HDMI2, 1, -7};
const std::string kContent = "kelutv hotel settings 1\n"
                             "factory.hotelEnable 1\n"
                             "factory.hotelKeypad 0\n"
                             "factory.hotelSetupMenu 0\n"
                             "factory.hotelMaxVolume 40\n"
                             "factory.hotelBootVolume 15\n"
                             "factory.hotelBootSrc 10\n"
                             "factory.hotelBootChannel 1 -7\n"
                             "end\n";

TEST_F(Hotel, SettingsTravelThroughAFile) {
    EXPECT_EQ(settings(), kAtFirst);
    furnish();
    EXPECT_EQ(BackupHotelData2USB(mFile.c_str()), 0);
    EXPECT_EQ(content(), kContent);
    EXPECT_EQ(linux_tv_Factory_setGamma(4), 0);
    EXPECT_EQ(RestoreHotelSetting(), 0);
    EXPECT_EQ(settings(), kAtFirst);
    EXPECT_EQ(linux_tv_Factory_getGamma(), 4);
    EXPECT_EQ(BackupHotelData2USB(mFile.c_str()), 0);
    EXPECT_NE(content(), kContent);
    put(kContent);
    EXPECT_EQ(RestoreHotelData2EEP(mFile.c_str()), 0);
    EXPECT_EQ(settings(), kFurnished);
}

TEST_F(Hotel, FilesThatAreNotWholeChangeNothing) {
    furnish();
    std::vector<std::string> damaged{"",
                                     "nonsense\n",
                                     kContent + "more\n",
                                     kContent + "\n",
                                     "factory.hotelEnable 1\n" + kContent,
                                     std::string(100000, 'x')};
    for (std::size_t length = 0; length + 1 < kContent.size(); ++length) {
        damaged.push_back(kContent.substr(0, length));
    }
    for (const char* const number : {"x", "", "1 2", "99999999999", "0x1", "+1"}) {
        std::string text = kContent;
        damaged.push_back(text.replace(text.find("40"), 2, number));
    }
    ASSERT_EQ(RestoreHotelSetting(), 0);
    for (const std::string& text : damaged) {
        put(text);
        EXPECT_EQ(RestoreHotelData2EEP(mFile.c_str()), kNotRestored) << text.substr(0, 300);
    }
    EXPECT_EQ(settings(), kAtFirst);
}

TEST_F(Hotel, PlacesWithoutAFileAreRefused) {
    furnish();
    EXPECT_EQ(RestoreHotelData2EEP(mFile.c_str()), kNotRestored);
    EXPECT_EQ(RestoreHotelData2EEP(mFolder.path().c_str()), kNotRestored);
    EXPECT_EQ(BackupHotelData2USB(mFolder.path().c_str()), kNotStored);
    EXPECT_EQ(BackupHotelData2USB(mFolder.pathOf("none/hotel.txt").c_str()), kNotStored);
    EXPECT_EQ(BackupHotelData2USB(""), kNotStored);
    ASSERT_EQ(::mkfifo(mFile.c_str(), 0600), 0);
    EXPECT_EQ(BackupHotelData2USB(mFile.c_str()), kNotStored);
    EXPECT_EQ(RestoreHotelData2EEP(mFile.c_str()), kNotRestored);
    EXPECT_EQ(settings(), kFurnished);
}

TEST_F(Hotel, OtherOperationsOnTheFlashEepTouchNothing) {
    furnish();
    EXPECT_EQ(linux_tv_Factory_operateFlashEEPROM(KELU_TV_EEFLASH_PART, mFile.c_str()), 0);
    EXPECT_EQ(linux_tv_Factory_operateFlashEEPROM(KELU_TV_EEFLASH_UPDATE_HOTEL, mFile.c_str()), 0);
    EXPECT_EQ(linux_tv_Factory_operateFlashEEPROM(KELU_TV_EEFLASH_OPERATE_BUTT, mFile.c_str()), kOutOfRange);
    EXPECT_EQ(linux_tv_Factory_operateFlashEEPROM(-1, mFile.c_str()), kOutOfRange);
    EXPECT_EQ(settings(), kFurnished);
    EXPECT_NE(::access(mFile.c_str(), F_OK), 0);
}

} // namespace

} // namespace kelutv::test
