#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/Snapshot.h"
#include "tools/kelutv/snapshot/StateText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace kelutv::test {
namespace {

using tool::Json;

const std::string kFile = R"({
  "format": "kelutv snapshot 1",
  "library": "1.0.0",
  "taken": "2026-11-22T14:00:00Z",
  "readable": 4,
  "held": 3,
  "states": [
    {"state":"audio.volume[speaker]","values":[35],"function":"linux_tv_Audio_getVolume",)"
                          R"("arguments":{"channel":"KELU_TV_AUDIO_CHANNEL_SPEAKER"},"result":0,"seconds":0.012},
    {"state":"factory.macAddress","values":[{"hex":"ff00"}],"function":"linux_tv_Factory_getMacAddress",)"
                          R"("arguments":{},"result":0,"seconds":0.013},
    {"state":"hdmicec.getDeviceListInfo","values":[0,[{"logAddr":4,"deVName":"a\"b"}]],)"
                          R"("function":"linux_tv_HdmiCEC_getDeviceListInfo","arguments":{},"result":null,"seconds":1.0}
  ],
  "missing": [
    {"state":"audio.equalLound[?]","function":"Audio::getEqualLoundValue","reason":"no keys","result":null}
  ]
}
)";

std::string with(const std::string& right, const std::string& wrong) {
    std::string text = kFile;
    return text.replace(text.find(right), right.size(), wrong);
}

/** What is said of a text that is refused; empty when it is not. */
std::string complaintAbout(const std::string& text) {
    try {
        tool::snapshotOf(text, "FILE");
    } catch (const tool::UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(SnapshotFile, isReadAndWrittenAsItIs) {
    const tool::Snapshot snapshot = tool::snapshotOf(kFile, "FILE");
    ASSERT_EQ(snapshot.held.size(), 3U);
    EXPECT_EQ(snapshot.held[0].state, "audio.volume[speaker]");
    EXPECT_EQ(snapshot.held[0].values, Json::array({35}));
    EXPECT_STREQ(snapshot.held[0].reading.function->name, "linux_tv_Audio_getVolume");
    EXPECT_EQ(snapshot.held[0].reading.arguments, std::vector<std::string>{"KELU_TV_AUDIO_CHANNEL_SPEAKER"});
    ASSERT_EQ(snapshot.missing.size(), 1U);
    EXPECT_EQ(snapshot.missing[0].reason, "no keys");
    EXPECT_EQ(tool::textOf(snapshot), kFile);
    tool::Snapshot none;
    none.taken = "2026-11-22T14:00:00Z";
    EXPECT_EQ(tool::snapshotOf(tool::textOf(none), "FILE").readable(), 0U);
}

TEST(SnapshotFile, mayHaveMembersOfLaterVersions) {
    EXPECT_EQ(complaintAbout(with("\"held\": 3,", "\"held\": 3, \"mood\": {\"good\": [true]},")), "");
    EXPECT_EQ(complaintAbout(with("\"seconds\":0.012", "\"seconds\":0.012,\"mood\":null")), "");
}

TEST(SnapshotFile, isRefusedWithThePlaceOfWhatIsWrong) {
    EXPECT_EQ(complaintAbout("[]"), "FILE: is no object");
    EXPECT_EQ(complaintAbout(with("kelutv snapshot 1", "kelutv snapshot 2")),
              "FILE: the format is 'kelutv snapshot 2', not 'kelutv snapshot 1'");
    EXPECT_EQ(complaintAbout(with("\"taken\"", "\"token\"")), "FILE: lacks 'taken'");
    EXPECT_EQ(complaintAbout(with("[35]", "35")), "FILE: states[0]: 'values' is no list");
    EXPECT_EQ(complaintAbout(with("\"channel\"", "\"kanal\"")), "FILE: states[0], arguments: lacks 'channel'");
    EXPECT_EQ(complaintAbout(with("\"linux_tv_Audio_getVolume\"", "\"linux_tv_Audio_setVolume\"")),
              "FILE: states[0]: 'linux_tv_Audio_setVolume' is no operation that reads");
    EXPECT_EQ(complaintAbout(with("factory.macAddress", "audio.volume[speaker]")),
              "FILE: states has audio.volume[speaker] twice");
    EXPECT_EQ(complaintAbout(with("\"reason\":\"no keys\"", "\"reason\":7")), "FILE: missing[0]: 'reason' is no text");
    EXPECT_EQ(complaintAbout(with("\"readable\": 4", "\"readable\": 5")),
              "FILE: 'readable' is not the number of states, held and missing: the file is not whole");
    EXPECT_EQ(complaintAbout(with("\"result\":null", "\"result\":\"\"")),
              "FILE: states[2]: 'result' is neither an integer nor null");
    EXPECT_EQ(complaintAbout(with("\"seconds\":0.013", "\"seconds\":\"0.013\"")),
              "FILE: states[1]: 'seconds' is no number");
}

TEST(SnapshotFile, isRefusedWhenItEndsEarly) {
    for (std::size_t size = 0; size < kFile.size() - 2; ++size) {
        EXPECT_NE(complaintAbout(kFile.substr(0, size)), "") << size;
    }
}

TEST(SnapshotFile, isReadOrRefusedWhateverByteIsAnother) {
    for (std::size_t at = 0; at < kFile.size(); ++at) {
        for (const char byte : {'"', '9', '\xFF'}) {
            std::string text = kFile;
            text[at] = byte;
            const std::string complaint = complaintAbout(text);
            EXPECT_TRUE(complaint.empty() || complaint.substr(0, 6) == "FILE: ") << complaint;
        }
    }
}

TEST(StateText, namesKeysAndValues) {
    const wire::StateKey& volume = *wire::findState("audio.volume");
    EXPECT_EQ(tool::stateText(volume, {wire::Value(0)}), "audio.volume[speaker]");
    EXPECT_EQ(tool::stateText(volume, {wire::Value(4711)}), "audio.volume[4711]");
    EXPECT_EQ(tool::stateText(*wire::findState("audio.soundMode"), {}), "audio.soundMode");
    EXPECT_EQ(tool::stateNamedIn("audio.volume[speaker]"), &volume);
    EXPECT_EQ(tool::stateNamedIn("hdmicec.getDeviceListInfo"), nullptr);
    EXPECT_EQ(tool::valuesText("sourcemanager.curSource[main]", Json::array({9})), "9 (hdmi1)");
    EXPECT_EQ(tool::valuesText("audio.volume[speaker]", Json::array({35})), "35");
    EXPECT_EQ(tool::valuesText("factory.hotelBootChannel", Json::array({1, -7})), "[1, -7]");
}

TEST(StateText, keepsWhatJsonLacks) {
    EXPECT_EQ(tool::documentOf(wire::Value(std::string("a\xFF"))), (Json{{"hex", "61ff"}}));
    EXPECT_EQ(tool::documentOf(wire::Value(std::string("gr\xC3\xBC\xC3\x9F\n"))), Json("gr\xC3\xBC\xC3\x9F\n"));
    EXPECT_EQ(tool::documentOf(wire::Value(std::nan(""))), (Json{{"real", "nan"}}));
    EXPECT_EQ(tool::documentOf(wire::Value(-std::numeric_limits<double>::infinity())), (Json{{"real", "-inf"}}));
    EXPECT_EQ(tool::documentOf(wire::Value(1.5)), Json(1.5));
}

} // namespace
} // namespace kelutv::test
