#include "client/ClientTest.h"
#include "client/Untouched.h"
#include "client/factory/TheFactory.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>

namespace kelutv::test {
namespace {

using Bands = std::array<int, 12>;

Bands fields(const SoundPeqData& data) {
    return {data.FO1_COARSE, data.FO1_FINE, data.FO2_COARSE, data.FO2_FINE, data.FO3_COARSE, data.FO3_FINE,
            data.GAIN1,      data.GAIN2,    data.GAIN3,      data.Q1,       data.Q2,         data.Q3};
}

using FactoryRecord = ClientTest;

TEST_F(FactoryRecord, areZeroWhereTheReplyEnds) {
    answer({0, 1, 2});
    EXPECT_EQ(fields(factory().getSoundPEQ()), (Bands{1, 2}));
}

/** Reads into a buffer of 300 ints that were all untouched before. */
class FactoryValues : public ClientTest {
protected:
    FactoryValues() { data.fill(kUntouched); }

    /** Answers 0 and then 1, 2, 3 and so on. */
    void answerNumbers(int count) {
        Wire reply = Wire::reply().i32(0);
        for (int i = 1; i <= count; ++i) {
            reply.i32(i);
        }
        service().reply(reply.bytes());
    }

    /** Whether the first `count` values are 1, 2, 3 and so on, and the next is untouched. */
    void expectNumbers(int count) {
        for (int i = 0; i < count; ++i) {
            ASSERT_EQ(data.at(static_cast<std::size_t>(i)), i + 1);
        }
        EXPECT_EQ(data.at(static_cast<std::size_t>(count)), kUntouched);
        data.fill(kUntouched);
    }

    /** Answers 0, a count and then 1, 2, 3 and so on. */
    void answerCounted(int count, int claimed) {
        Wire reply = Wire::reply().i32(0).i32(claimed);
        for (int i = 1; i <= count; ++i) {
            reply.i32(i);
        }
        service().reply(reply.bytes());
    }

    /** Whether the first `count` values are 1, 2, 3 and so on, those up to `all` are 0, and the rest is untouched. */
    void expectNumbersAndZeros(int count, int all) {
        std::array<int, 300> expected{};
        expected.fill(kUntouched);
        std::fill_n(expected.begin(), all, 0);
        std::iota(expected.begin(), expected.begin() + count, 1);
        EXPECT_EQ(data, expected);
        data.fill(kUntouched);
    }

    std::array<int, 300> data{};
};

// irregular: Factory::getSystemupTime
TEST_F(FactoryValues, areAsManyAsTheOperationReads) {
    answerNumbers(299);
    EXPECT_EQ(factory().getUDiskNum(data.data()), 0);
    expectNumbers(1);
    EXPECT_EQ(factory().getPlatFormSupportUsbNum(data.data()), 0);
    expectNumbers(1);
    EXPECT_EQ(factory().getLaserItemValue(4, 5, data.data()), 0);
    expectNumbers(1);
    EXPECT_EQ(factory().getSystemupTime(data.data()), 0);
    expectNumbers(2);
    EXPECT_EQ(factory().getBurnKeyStatus(data.data()), 0);
    expectNumbers(32);
    EXPECT_EQ(factory().getFactoryItemValue(6, 7, 8, data.data()), 0);
    expectNumbers(255);
    const std::vector<std::string> requests{hex(requestOf(0x9092)),         hex(requestOf(0x9097)),
                                            hex(requestOf(0x90B9, {4, 5})), hex(requestOf(0x9093)),
                                            hex(requestOf(0x909A)),         hex(requestOf(0x90C2, {6, 7, 8}))};
    EXPECT_EQ(sent(), requests);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(FactoryValues, areZeroWhereTheReplyEnds) {
    answer({0, 1});
    EXPECT_EQ(factory().getSystemupTime(data.data()), 0);
    EXPECT_EQ(data[1], 0);
    EXPECT_EQ(factory().getBurnKeyStatus(data.data()), 0);
    EXPECT_EQ(data[31], 0);
    EXPECT_EQ(data[32], kUntouched);
    EXPECT_EQ(factory().getFactoryItemValue(6, 7, 8, data.data()), 0);
    EXPECT_EQ(data[254], 0);
    EXPECT_EQ(data[255], kUntouched);
}

TEST_F(FactoryValues, areUntouchedByAFailedRead) {
    answer({1, 1, 2, 3});
    EXPECT_EQ(factory().getUDiskNum(data.data()), -1);
    EXPECT_EQ(factory().getPlatFormSupportUsbNum(data.data()), -1);
    EXPECT_EQ(factory().getLaserItemValue(4, 5, data.data()), -1);
    EXPECT_EQ(factory().getFactoryItemValue(6, 7, 8, data.data()), -1);
    EXPECT_EQ(factory().getNetPortDataTransmission(6, data.data(), 3), -1);
    EXPECT_EQ(logged(), kNothingLogged);
    EXPECT_EQ(factory().getSystemupTime(data.data()), -1);
    EXPECT_EQ(logged(), untaggedError("getSystemupTime timeData  error"));
    EXPECT_EQ(factory().getBurnKeyStatus(data.data()), -1);
    EXPECT_EQ(logged(), untaggedError("getBurnKeyStatus timeData  error"));
    EXPECT_EQ(data[0], kUntouched);
}

// irregular: Factory::getNetPortDataTransmission
TEST_F(FactoryValues, ofTheNetworkPortAreCounted) {
    answerNumbers(20);
    EXPECT_EQ(factory().getNetPortDataTransmission(6, data.data(), 3), 0);
    EXPECT_EQ(sent(), only(requestOf(0x908D, {6, 3})));
    expectNumbers(3);
    for (const int length : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(factory().getNetPortDataTransmission(6, data.data(), length), 0);
        EXPECT_EQ(sent(), only(requestOf(0x908D, {6, length})));
        expectNumbers(0);
    }
    answer({0, 1});
    EXPECT_EQ(factory().getNetPortDataTransmission(6, data.data(), 2), 0);
    EXPECT_EQ(data[1], 0);
}

// irregular: Factory::getSoundCurveCtlData
// irregular: Factory::getHeadPhoneSoundCurveCtlData
TEST_F(FactoryValues, ofTheVolumeCurvesAreLedByTheirCount) {
    const struct {
        int (*read)(int* points, int* count);
        int command;
    } curves[] = {
        {[](int* points, int* count) { return factory().getSoundCurveCtlData(points, count); }, 0x90CC},
        {[](int* points, int* count) { return factory().getHeadPhoneSoundCurveCtlData(points, count); }, 0x90CD}};
    for (const auto& curve : curves) {
        int count = 99;
        answer({0, 3, 1, 2, 3, 4});
        EXPECT_EQ(curve.read(data.data(), &count), 0);
        EXPECT_EQ(sent(), only(requestOf(curve.command)));
        EXPECT_EQ(count, 3);
        expectNumbers(3);
        for (const int claimed : {0, -5}) {
            answer({0, claimed, 1, 2});
            EXPECT_EQ(curve.read(data.data(), &count), 0);
            EXPECT_EQ(count, claimed);
            expectNumbers(0);
        }
        for (const int claimed : {5, 255, 256, std::numeric_limits<int>::max()}) {
            answer({0, claimed, 1, 2});
            EXPECT_EQ(curve.read(data.data(), &count), 0);
            EXPECT_EQ(count, claimed);
            expectNumbersAndZeros(2, std::min(claimed, 255));
        }
        answerCounted(280, 290);
        EXPECT_EQ(curve.read(data.data(), &count), 0);
        EXPECT_EQ(count, 290);
        expectNumbers(280);
        count = 99;
        answer({1, 3, 1, 2, 3});
        EXPECT_EQ(curve.read(data.data(), &count), -1);
        EXPECT_EQ(count, 99);
        expectNumbers(0);
        sent();
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

// irregular: Factory::getSoundCurve
TEST_F(FactoryValues, ofTheSoundCurveAreDoubles) {
    std::array<double, 4> curve{9, 9, 9, 9};
    service().reply(Wire::reply().i32(0).f64(0.5).f64(-1e300).bytes());
    EXPECT_EQ(factory().getSoundCurve(curve.data(), 3), 0);
    EXPECT_EQ(sent(), only(requestOf(0x9060, {3})));
    EXPECT_EQ(curve, (std::array<double, 4>{0.5, -1e300, 0, 9}));
    curve.fill(9);
    for (const int length : {0, -1}) {
        EXPECT_EQ(factory().getSoundCurve(curve.data(), length), 0);
        EXPECT_EQ(sent(), only(requestOf(0x9060, {length})));
    }
    service().reply(Wire::reply().i32(2).f64(0.5).bytes());
    EXPECT_EQ(factory().getSoundCurve(curve.data(), 1), -1);
    EXPECT_EQ(curve, (std::array<double, 4>{9, 9, 9, 9}));
    service().reply(Wire::reply().i32(0).f64(0.5).i32(7).bytes());
    EXPECT_EQ(factory().getSoundCurve(curve.data(), 3), 0);
    EXPECT_EQ(curve, (std::array<double, 4>{0.5, 0, 0, 9})) << "half a double is none";
}

// irregular: Factory::setSoundCurve
TEST_F(FactoryValues, ofTheSoundCurveAreSentBehindTheirNumber) {
    double curve[] = {0.5, -1.25, 1e300, 4};
    answer({6});
    EXPECT_EQ(factory().setSoundCurve(curve, 3), 6);
    EXPECT_EQ(sent(), only(Wire::request(0x9061).i32(3).f64(0.5).f64(-1.25).f64(1e300).bytes()));
    for (const int length : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(factory().setSoundCurve(curve, length), 6);
        EXPECT_EQ(sent(), only(requestOf(0x9061, {length})));
    }
}

TEST_F(FactoryValues, areNotSentWhereTheyAreMoreThanARequestHolds) {
    double curve[] = {1};
    int key[] = {1};
    for (const int count : {0x20000000, 0x40000000, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(factory().setSoundCurve(curve, count), -1) << count;
        EXPECT_EQ(logged(), kInvokeFailure) << count;
        EXPECT_EQ(factory().setKeyData(1, key, count, 2, 3), -1) << count;
        EXPECT_EQ(logged(), kInvokeFailure) << count;
    }
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(FactoryValues, ofTheEthernetItemAreTheFirst) {
    answer({0, 7, 8});
    EXPECT_EQ(factory().getSupportEthConfig(), 7);
    EXPECT_EQ(sent(), only(requestOf(0x90C2, {36876, 0, 0})));
    answer({1, 7, 8});
    EXPECT_EQ(factory().getSupportEthConfig(), 0);
}

} // namespace
} // namespace kelutv::test
