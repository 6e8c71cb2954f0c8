#include "client/ClientTest.h"

#include <kelutv/linux_kelutv_factory.h>
#include <kelutv/linux_kelutv_hotel.h>

#include <unistd.h>

#include <cstring>
#include <string>

namespace kelutv::test {
namespace {

/** Runs with a link that is absent, with one that is dead, and with a living one whose transactions fail. */
class FactoryFunctionFailure : public ClientTest {
protected:
    FactoryFunctionFailure() { failTransactions(); }
};

TEST_F(FactoryFunctionFailure, ofASetIsLogged) {
    char text[] = "abc";
    EXPECT_EQ(linux_tv_Factory_setGamma(1), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(linux_tv_Factory_setCountry(1), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(linux_tv_Factory_setMachineInfo(1, text), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(linux_tv_Factory_setAvcGain(1.5), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(SetHotelEnable(true), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
    EXPECT_EQ(BackupHotelData2USB("/mnt/a"), -1);
    EXPECT_EQ(logged(), kInvokeFailure);
}

TEST_F(FactoryFunctionFailure, ofAnUpgradeIsLoggedBehindTheUpgrade) {
    EXPECT_EQ(linux_tv_Factory_upgradeSystem(1), -1);
    const std::vector<LogEntry> lines{{ANDROID_LOG_ERROR, "TVBASEMW@linuxFactory", "d%\n"}, kInvokeFailure.front()};
    EXPECT_EQ(logged(), lines);
}

TEST_F(FactoryFunctionFailure, keepsThePatternThatWasAskedFor) {
    EXPECT_EQ(linux_tv_Factory_setWBWhitePattern(4), -1);
    EXPECT_EQ(linux_tv_Factory_getWBWhitePattern(), 4);
}

TEST_F(FactoryFunctionFailure, isHiddenByTheFunctionsThatAlwaysSucceed) {
    FdCapture output(STDOUT_FILENO);
    int value = 99;
    EXPECT_EQ(linux_tv_factory_getIRWBStatus(&value), 0);
    EXPECT_EQ(value, -1);
    value = 99;
    EXPECT_EQ(linux_tv_factory_getEDIDType(&value), 0);
    EXPECT_EQ(value, -1);
    EXPECT_EQ(output.take(), "linux_tv_factory_getEDIDType = -1\n");
    char text[16] = "";
    EXPECT_EQ(linux_tv_Factory_getBarCode(text), 0);
    EXPECT_STREQ(text, "error barcode");
}

TEST_F(FactoryFunctionFailure, leavesAZeroRecord) {
    CalibrationInfo calibration{9, 9, 9, 9, 9, 9};
    EXPECT_EQ(linux_tv_Factory_getADCGainOffset(1, &calibration), 0);
    EXPECT_EQ(calibration.redGain, 0U);
    EXPECT_EQ(calibration.blueOffset, 0U);
    NlaInfo points{9, 9, 9, 9, 9};
    EXPECT_EQ(linux_tv_Factory_getNLAPoint(1, &points, KELU_TV_SRC_HDMI1), 0);
    EXPECT_EQ(points.point0, 0U);
    EXPECT_EQ(points.point100, 0U);
}

TEST_F(FactoryFunctionFailure, readsAsOneWhereAnswersAreMadeOneOrZero) {
    EXPECT_EQ(linux_tv_Factory_isWdtEnable(), 1);
    EXPECT_EQ(linux_tv_Factory_getPanelIntfOutEnable(), 1);
    EXPECT_EQ(linux_tv_Factory_setLineODIndex(1), 1);
}

TEST_F(FactoryFunctionFailure, ofAnItemLeavesZeros) {
    int value = 99;
    EXPECT_EQ(linux_tv_Factory_getCountry(&value), -1);
    EXPECT_EQ(value, 0);
    value = 99;
    EXPECT_EQ(GetHotelMaxVolume(&value), -1);
    EXPECT_EQ(value, 0);
    bool flag = true;
    EXPECT_EQ(linux_tv_Factory_getCIEnable(&flag), -1);
    EXPECT_FALSE(flag);
    flag = true;
    EXPECT_EQ(GetHotelKeypadEnable(&flag), -1);
    EXPECT_FALSE(flag);
    double gain = 99;
    EXPECT_EQ(linux_tv_Factory_getAvcGain(&gain), -1);
    EXPECT_EQ(gain, 0);
    int list = 98;
    int size = 99;
    EXPECT_EQ(linux_tv_Factory_getCountryList(&list, &size), -1);
    EXPECT_EQ(list, 98);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(FactoryFunctionFailure, leavesListsAndTextsOfTheCaller) {
    BOE_OD_TableInfo table;
    std::memset(&table, 'x', sizeof table);
    EXPECT_EQ(linux_tv_Factory_getLineODListTable(&table), -1);
    EXPECT_EQ(std::string(table.ODTableStr[0], sizeof table), std::string(90, 'x'));
    int kind = 98;
    int count = 99;
    EXPECT_EQ(linux_tv_Factory_getBurnKeyType("/mnt", &kind, &count), -1);
    EXPECT_EQ(kind, 98);
    EXPECT_EQ(count, 0);
    char text[16] = "untouched";
    EXPECT_EQ(linux_tv_Factory_getPanelSize(text), -1);
    EXPECT_STREQ(text, "untouched");
}

} // namespace
} // namespace kelutv::test
