#include "client/ClientTest.h"
#include "client/audio/TheAudio.h"

#include <kelutv/linux_kelutv_audio.h>

namespace kelutv::test {
namespace {

/** Bands with a different value in every field: 0, 101, 201, 301; 1, 102, 202, 302; and so on. */
KELU_TV_SND_PEQ_ATTR_S equalizer(int bandNum) {
    KELU_TV_SND_PEQ_ATTR_S attributes{};
    attributes.intBandNum = bandNum;
    for (int i = 0; i < 10; ++i) {
        attributes.stEqParam[i] = {static_cast<KELU_TV_PEQ_FILTER_TYPE_E>(i % 5), 101 + i, 201 + i, 301 + i};
    }
    return attributes;
}

Wire& addEqualizer(Wire& wire, int bandNum) {
    wire.i32(bandNum);
    for (int i = 0; i < 10; ++i) {
        wire.i32(i % 5).i32(101 + i).i32(201 + i).i32(301 + i);
    }
    return wire;
}

Bytes equalizerRequest(int bandNum) {
    Wire wire = Wire::request(0x205A);
    return addEqualizer(wire, bandNum).bytes();
}

using AudioEqualizer = ClientTest;

// irregular: Audio::setPEQAttr
TEST_F(AudioEqualizer, alwaysSendsTenBands) {
    answer({7});
    for (const int bandNum : {1, 5, 10}) {
        KELU_TV_SND_PEQ_ATTR_S attributes = equalizer(bandNum);
        EXPECT_EQ(audio().setPEQAttr(&attributes), 7);
        EXPECT_EQ(sent(), only(equalizerRequest(bandNum)));
        EXPECT_EQ(linux_tv_Audio_setPEQAttr(&attributes), 7);
        EXPECT_EQ(sent(), only(equalizerRequest(bandNum)));
    }
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(AudioEqualizer, refusesOtherNumbersOfBands) {
    for (const int bandNum : {0, 11, -1, 1000}) {
        KELU_TV_SND_PEQ_ATTR_S attributes = equalizer(bandNum);
        const std::vector<LogEntry> refusal =
            untaggedError("invalid parameter " + std::to_string(bandNum) + " max = 10");
        EXPECT_EQ(audio().setPEQAttr(&attributes), -1);
        EXPECT_EQ(logged(), refusal);
        EXPECT_EQ(linux_tv_Audio_setPEQAttr(&attributes), -1);
        EXPECT_EQ(logged(), refusal);
    }
    EXPECT_EQ(sent(), kNothingSent);
}

TEST_F(AudioEqualizer, hasItsBandNumberReadUnchecked) {
    Wire reply = Wire::reply().i32(0);
    service().reply(addEqualizer(reply, 99).bytes());
    KELU_TV_SND_PEQ_ATTR_S attributes{};
    EXPECT_EQ(audio().getPEQAttr(&attributes), 0);
    EXPECT_EQ(attributes.intBandNum, 99);
}

} // namespace
} // namespace kelutv::test
