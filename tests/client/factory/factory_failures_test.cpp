#include "client/ClientTest.h"
#include "client/factory/TheFactory.h"

#include <unistd.h>

namespace kelutv::test {
namespace {

/** Runs with a link that is absent, with one that is dead, and with a living one whose transactions fail. */
class FactoryFailure : public ClientTest {
protected:
    FactoryFailure() { failTransactions(); }

    std::vector<LogEntry> invokeFailureAnd(const char* line) {
        return {kInvokeFailure.front(), untaggedError(line).front()};
    }

    char text[32] = "untouched";
    int values[256] = {99};
};

TEST_F(FactoryFailure, ofASetIsLogged) {
    double curve[] = {1};
    EXPECT_EQ(factory().setGamma(1), -1);
    EXPECT_EQ(factory().setSoundPEQ({}), -1);
    EXPECT_EQ(factory().setSoundCurve(curve, 1), -1);
    EXPECT_EQ(factory().setKeyData(1, values, 1, 2, 3), -1);
    EXPECT_EQ(factory().setFactoryItemStrValue(1, 2, 3, "text"), -1);
    EXPECT_EQ(factory().setAdjustParam(1), -1);
    EXPECT_EQ(factory().setUartData("text"), -1);
    EXPECT_TRUE(factory().setLineODIndex(1));
    EXPECT_EQ(factory().exDevInserted("text"), -1);
    EXPECT_TRUE(factory().getBurnKeyType("text").empty());
    EXPECT_EQ(logged(), std::vector<LogEntry>(10, kInvokeFailure.front()));
}

TEST_F(FactoryFailure, ofAGetIsSilent) {
    EXPECT_EQ(factory().getGamma(), -1);
    EXPECT_TRUE(factory().isWdtEnable());
    EXPECT_EQ(factory().getSoundPEQ().Q3, 0);
    EXPECT_EQ(factory().getADCGainOffset(1).redGain, 0U);
    EXPECT_TRUE(factory().getLineODListTable().empty());
    EXPECT_EQ(factory().getFactoryItemValue(1, 2, 3, values), -1);
    EXPECT_EQ(factory().getSoundCurveCtlData(values, &values[1]), -1);
    EXPECT_EQ(factory().getSupportEthConfig(), 0);
    EXPECT_EQ(factory().getDtvSn(1, text), -1);
    EXPECT_EQ(factory().getNTPQPlatFormVer(text), -1);
    EXPECT_EQ(factory().getPQBinVersion(text), -1);
    EXPECT_EQ(values[0], 99);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(FactoryFailure, leavesTheStandIns) {
    EXPECT_EQ(factory().getBarCode(text), 0);
    EXPECT_STREQ(text, "error barcode");
    EXPECT_EQ(factory().getInternetTime(text), 0);
    EXPECT_STREQ(text, "19700101rcode");
    EXPECT_EQ(factory().getLaserFWVersion(1, text), 0);
    EXPECT_STREQ(text, "error101rcode");
    EXPECT_EQ(logged(), kNothingLogged);
    EXPECT_EQ(factory().getPlatform(text), 0);
    EXPECT_STREQ(text, "default");
    EXPECT_EQ(logged(), untaggedError("getPlatform return error,use default"));
}

TEST_F(FactoryFailure, isLoggedByTheReadersThatSaySo) {
    EXPECT_EQ(factory().getBurnKeyStatus(values), -1);
    EXPECT_EQ(logged(), untaggedError("getBurnKeyStatus timeData  error"));
    EXPECT_EQ(factory().getSystemupTime(values), -1);
    EXPECT_EQ(logged(), untaggedError("getSystemupTime timeData  error"));
    EXPECT_EQ(factory().getAutoColorTempDebugInfo(text, 1), -1);
    EXPECT_EQ(logged(), untaggedError("getAutoColorTempDebugInfo return error"));
    EXPECT_EQ(factory().get455Version(text), -1);
    EXPECT_EQ(logged(), untaggedError("getSystemItemStrValue error"));
    EXPECT_EQ(factory().setStbOtpBurn(1, "key", text), -1);
    EXPECT_EQ(logged(), invokeFailureAnd("setStbOtpBurn,getBurnKeyStatus timeData  error"));
    EXPECT_STREQ(text, "untouched");
}

TEST_F(FactoryFailure, isPrintedByTheColourTables) {
    FdCapture errors(STDERR_FILENO);
    EXPECT_EQ(factory().pqIoCtl(KELU_TV_PQ_IOCTL_Red_Color, nullptr), -1);
    EXPECT_EQ(errors.take(), "pqIoCtl error");
    EXPECT_EQ(logged(), kInvokeFailure);
}

} // namespace
} // namespace kelutv::test
