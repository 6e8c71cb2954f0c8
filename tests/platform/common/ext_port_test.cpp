#include <kqcommon/ExtPort.h>

#include <dlfcn.h>

#include <climits>
#include <cstring>

#include <gtest/gtest.h>

namespace {

struct Row {
    KELU_MW_SRC_E source;
    EInputPortType port;
    unsigned int device;
};

constexpr Row kRows[] = {
    {KELU_MW_SRC_ATV, INPUT_PORT_TUNER, 0},    {KELU_MW_SRC_DIG1, INPUT_PORT_TUNER, 1},
    {KELU_MW_SRC_DIG2, INPUT_PORT_TUNER, 2},   {KELU_MW_SRC_CVBS1, INPUT_PORT_CVBS, 0},
    {KELU_MW_SRC_CVBS2, INPUT_PORT_CVBS, 1},   {KELU_MW_SRC_CVBS3, INPUT_PORT_CVBS, 2},
    {KELU_MW_SRC_VGA, INPUT_PORT_VGA, 0},      {KELU_MW_SRC_YPBPR1, INPUT_PORT_YPBPR, 0},
    {KELU_MW_SRC_YPBPR2, INPUT_PORT_YPBPR, 1}, {KELU_MW_SRC_HDMI1, INPUT_PORT_HDMI, 0},
    {KELU_MW_SRC_HDMI2, INPUT_PORT_HDMI, 1},   {KELU_MW_SRC_HDMI3, INPUT_PORT_HDMI, 2},
    {KELU_MW_SRC_HDMI4, INPUT_PORT_HDMI, 3},   {KELU_MW_SRC_MEDIA, INPUT_PORT_MEDIA, 0},
    {KELU_MW_SRC_MEDIA2, INPUT_PORT_MEDIA, 1}, {KELU_MW_SRC_SCART1, INPUT_PORT_SCART, 0},
    {KELU_MW_SRC_SCART2, INPUT_PORT_SCART, 1},
};

SExtPortPlugInOutInfo filledWithPattern() {
    SExtPortPlugInOutInfo record;
    std::memset(&record, 0x5A, sizeof(record));
    return record;
}

TEST(ExtPort, givesEverySourceItsPort) {
    for (const Row& row : kRows) {
        SExtPortPlugInOutInfo record = filledWithPattern();
        EXPECT_EQ(coverSrc2Port(row.source, &record), 0) << row.source;
        EXPECT_EQ(record.externalPort.inputPort, row.port) << row.source;
        EXPECT_EQ(record.externalPort.inputDev.hdmiDev, row.device) << row.source;
        EXPECT_EQ(record.plugState, 0) << row.source;
    }
}

TEST(ExtPort, givesNoPortToSourcesWithoutOne) {
    for (const int source :
         {static_cast<int>(KELU_MW_SRC_AUTO), static_cast<int>(KELU_MW_SRC_BUTT), 19, 31, -1, INT_MAX, INT_MIN}) {
        SExtPortPlugInOutInfo record = filledWithPattern();
        KELU_MW_SRC_E value;
        std::memcpy(&value, &source, sizeof(value));
        EXPECT_EQ(coverSrc2Port(value, &record), -1) << source;
        EXPECT_EQ(record.externalPort.inputPort, INPUT_PORT_NONE) << source;
        EXPECT_EQ(record.externalPort.inputDev.hdmiDev, 0U) << source;
        EXPECT_EQ(record.plugState, 0) << source;
    }
}

TEST(ExtPort, takesANullRecord) { EXPECT_EQ(coverSrc2Port(KELU_MW_SRC_HDMI1, nullptr), -1); }

TEST(ExtPort, isFoundUnderItsLinkageName) {
    EXPECT_NE(dlsym(RTLD_DEFAULT, "_Z13coverSrc2Port13KELU_MW_SRC_EP22_SExtPortPlugInOutInfo"), nullptr);
}

TEST(ExtPort, recordIsThreeWords) {
    EXPECT_EQ(sizeof(SInputPortInfo::inputDev), 4U);
    EXPECT_EQ(sizeof(SExtPortPlugInOutInfo), 12U);
}

} // namespace
