// What the commands do that are more than store and return, and the control lines, on a table of this test's own.

#include "simulator/control/Control.h"
#include "simulator/television/Television.h"
#include "simulator/trace/Trace.h"
#include "support/Wire.h"

#include <kelutv/commands.h>
#include <kelutv/items.h>

#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <string>
#include <vector>

namespace kelutv::simulator {

namespace {

using kelutv::test::Bytes;
using kelutv::test::hex;
using kelutv::test::replyOf;
using kelutv::test::requestOf;
using kelutv::test::Wire;

constexpr wire::RequestItem kNumber[] = {{wire::Encoding::Int32, "number", nullptr, wire::kRestOfRequest}};
constexpr wire::RequestItem kByte[] = {{wire::Encoding::Int32, "address", nullptr, wire::kRestOfRequest},
                                       {wire::Encoding::Int32, "value", nullptr, wire::kRestOfRequest}};
constexpr wire::RequestItem kBlock[] = {{wire::Encoding::Int32, "address", nullptr, wire::kRestOfRequest},
                                        {wire::Encoding::Int32, "length", nullptr, wire::kRestOfRequest},
                                        {wire::Encoding::Ints, "block", nullptr, 1}};
constexpr wire::ReplyField kInt[] = {{wire::Encoding::Int32, nullptr, nullptr, 1}};
constexpr wire::ReplyField kInts[] = {{wire::Encoding::Ints, nullptr, nullptr, wire::kRestOfReply}};
constexpr wire::StateRule kNoRule{wire::StateRule::Access::None, nullptr, {}, {}};
constexpr wire::Operation kAction{{}, wire::Shape::Status, {}, kNoRule};
constexpr wire::Operation kActionWithNumber{kNumber, wire::Shape::Status, {}, kNoRule};
constexpr wire::Operation kQuestion{{}, wire::Shape::Number, kInt, kNoRule};
constexpr wire::Operation kQuestionWithNumber{kNumber, wire::Shape::Number, kInt, kNoRule};
constexpr wire::Operation kSetByte{kByte, wire::Shape::Status, {}, kNoRule};
constexpr wire::Operation kGetBlock{kByte, wire::Shape::Parcel, kInts, kNoRule};
constexpr wire::Operation kSetBlock{kBlock, wire::Shape::Status, {}, kNoRule};
constexpr wire::Command kCommands[] = {
    {"ARC_SUPPORTED", kQuestion, CMD_CEC_GETARCSUPPORTED, false},
    {"ARC_ACTIVE", kQuestion, CMD_CEC_GETARCCONNECTSTATE, false},
    {"DEVICES", {{}, wire::Shape::Parcel, {}, kNoRule}, CMD_CEC_GETDEVICELISTALLINFO, false},
    {"SELECT", kQuestionWithNumber, CMD_CEC_ACTIVATE_CEC_DEVICE, false},
    {"PLAYING", kQuestion, CMD_CEC_GET_PLAYING_DEVICE_LOGADDR, false},
    {"ARC_PORT", kQuestion, CMD_CEC_GETARCPORT, false},
    {"SUSPEND", kAction, CMD_SYSTEM_SUSPEND, false},
    {"RESUME", kActionWithNumber, CMD_SYSTEM_RESUME, false},
    {"GET_EEP", kQuestionWithNumber, CMD_SYSTEM_GETEEPBYTE, false},
    {"GET_EEPS", kGetBlock, CMD_SYSTEM_GETEEPMULTI, false},
    {"SET_EEP", kSetByte, CMD_SYSTEM_SETEEPBYTE, false},
    {"SET_EEPS", kSetBlock, CMD_SYSTEM_SETEEPMULTI, false},
    {"GET_FLASH", kQuestionWithNumber, CMD_SYSTEM_GETFLASHEEPBYTE, false},
    {"GET_FLASHES", kGetBlock, CMD_SYSTEM_GETFLASHEEPMULTI, false},
    {"SET_FLASH", kSetByte, CMD_SYSTEM_SETFLASHEEPBYTE, false},
    {"SET_FLASHES", kSetBlock, CMD_SYSTEM_SETFLASHEEPMULTI, false},
    {"FLUSH", kAction, CMD_SYSTEM_SETFLASHEEPFLUSH, false},
    {"WAKEUP_MODE", kQuestion, CMD_SYSTEM_GETWAKEUPMODE, false},
    {"LAST_OFF", kQuestion, CMD_SYSTEM_GETLASTPOWEROFFMODE, false},
    {"SET_ITEM", kActionWithNumber, CMD_SYSTEM_COMMON_SET_ITEM_VALUE, false},
    {"STR_SUSPEND", kAction, CMD_SYSTEM_SET_ENTER_STR_SUSPEND, false},
    {"STR_RESUME", kAction, CMD_SYSTEM_SET_STR_RESUME, false},
    {"NORMAL_SUSPEND", kAction, CMD_SYSTEM_SET_ENTER_NORMAL_SUSPEND, false},
    {"SHALLOW_SUSPEND", kAction, CMD_SYSTEM_SET_ENTER_SHALLOW_SUSPEND, false},
    {"SHALLOW_RESUME", kAction, CMD_SYSTEM_SET_SHALLOW_RESUME, false},
    {"TTX_INIT", kAction, CMD_TV_TTX_INIT, false},
    {"TTX_DEINIT", kAction, CMD_TV_TTX_DEINIT, false},
    {"TTX_OPEN", kAction, CMD_TV_TTX_OPEN, false},
    {"TTX_CLOSE", kAction, CMD_TV_TTX_CLOSE, false},
    {"TTX_REGISTER", kAction, CMD_TV_TTX_REGISTCALLBACK, false},
    {"TTX_UNREGISTER", kAction, CMD_TV_TTX_UNREGISTCALLBACK, false},
};

constexpr char kConfiguration[] = R"({"cec": {"arcPort": 1, "devices": [
    {"logAddr": 4, "hdmiDevPort": 0, "name": "Disc player", "phyAddr": "1.0.0.0", "listText": "HDMI1 Disc player",
     "plugged": true},
    {"logAddr": 5, "hdmiDevPort": 1, "name": "Soundbar", "phyAddr": "2.0.0.0", "listText": "HDMI2 Soundbar",
     "plugged": true},
    {"logAddr": 8, "hdmiDevPort": 1, "name": "Streaming box", "phyAddr": "2.1.0.0", "listText": "HDMI2 Streaming box",
     "plugged": false},
    {"logAddr": 3, "hdmiDevPort": 2, "name": "Set-top box", "phyAddr": "3.0.0.0", "listText": "HDMI3 Set-top box",
     "plugged": false}]}})";

using Words = std::vector<std::int32_t>;

struct Published {
    unsigned int event;
    Words words;

    bool operator==(const Published& other) const { return event == other.event && words == other.words; }
};

std::ostream& operator<<(std::ostream& out, const Published& published) {
    return out << std::hex << published.event << std::dec << ::testing::PrintToString(published.words);
}

constexpr unsigned int kPlugged = 0x1A0001;
constexpr unsigned int kPlays = 0x1A0002;
constexpr unsigned int kPower = 0x80002;
constexpr unsigned int kBlockOfTypeOne = 0x120001;

class Handlers : public ::testing::Test {
protected:
    Bytes sendBytes(const Bytes& bytes) {
        wire::ByteReader data(bytes.data(), bytes.size());
        const wire::Request request = wire::readRequest(data);
        const wire::Reply reply = request.refusal ? replyTo(*request.refusal) : mTelevision.perform(request);
        mTrace = describe(request) + " -> " + describe(request, reply);
        android::Parcel written;
        wire::writeReply(reply, written);
        return Bytes(written.data(), written.data() + written.dataSize());
    }

    Bytes send(int command, std::initializer_list<std::int32_t> arguments = {}) {
        return sendBytes(requestOf(command, arguments));
    }

    std::string control(const std::string& line) {
        return obey(mTelevision.equipment().configuration, line,
                    [this](const Deed& deed) { return mTelevision.operate(deed); })
            .text;
    }

    std::vector<Published> published() {
        std::vector<Published> all;
        for (const PublishedEvent& event : mTelevision.takeEvents()) {
            Words words(event.payload.size() / sizeof(std::int32_t));
            std::memcpy(words.data(), event.payload.data(), words.size() * sizeof(words[0]));
            all.push_back({event.identifier, words});
        }
        return all;
    }

    void startTeletext() {
        send(CMD_TV_TTX_INIT);
        send(CMD_TV_TTX_OPEN);
        send(CMD_TV_TTX_REGISTCALLBACK);
        mTelevision.takeEvents();
    }

    Television mTelevision{Configuration::fromText(kConfiguration, "test.json")};
    std::string mTrace;
};

TEST_F(Handlers, EepBytesAreReadBack) {
    EXPECT_EQ(send(CMD_SYSTEM_SETEEPBYTE, {0xFFFF, 255}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPBYTE, {0, 7}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETEEPBYTE, {0xFFFF}), replyOf({0, 255}));
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPBYTE, {0}), replyOf({0, 7}));
    EXPECT_EQ(send(CMD_SYSTEM_GETEEPBYTE, {0}), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPBYTE, {0xFFFF}), replyOf({0, 0}));
}

TEST_F(Handlers, EepBlocksAreReadBack) {
    EXPECT_EQ(send(CMD_SYSTEM_SETEEPMULTI, {0x8BFC, 3, 1, 2, 3}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPMULTI, {0xFFFD, 3, 4, 128, 255}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETEEPMULTI, {0x8BFB, 5}), replyOf({0, 0, 1, 2, 3, 0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPMULTI, {0xFFFD, 3}), replyOf({0, 4, 128, 255}));
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPMULTI, {0xFFFD, 0}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPMULTI, {0xFFFD, -3}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPMULTI, {0, -3}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPFLUSH), replyOf({0}));
}

TEST_F(Handlers, EepAddressesOutOfRangeAreRefused) {
    for (const int address : {-1, 0x10000, 0x7FFFFFFF}) {
        EXPECT_EQ(send(CMD_SYSTEM_GETEEPBYTE, {address}), replyOf({-107}));
        EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPBYTE, {address, 1}), replyOf({-107}));
        EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPMULTI, {address, 0}), replyOf({-107}));
    }
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPMULTI, {0xFFFF, 2}), replyOf({-107}));
    EXPECT_EQ(send(CMD_SYSTEM_GETEEPMULTI, {1, 0x7FFFFFFF}), replyOf({-107}));
    EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPMULTI, {0xFFFF, 2, 8, 9}), replyOf({-107}));
    EXPECT_NE(mTrace.find("(addresses go from 0 to 65535, address 65535"), std::string::npos) << mTrace;
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPBYTE, {0xFFFF}), replyOf({0, 0}));
}

TEST_F(Handlers, EepValuesThatAreNoBytesAreRefused) {
    EXPECT_EQ(send(CMD_SYSTEM_SETEEPBYTE, {5, 256}), replyOf({-107}));
    EXPECT_EQ(send(CMD_SYSTEM_SETEEPBYTE, {5, -1}), replyOf({-107}));
    EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPMULTI, {5, 2, 1, 300}), replyOf({-107}));
    EXPECT_NE(mTrace.find("(a byte goes from 0 to 255, not 300)"), std::string::npos) << mTrace;
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPMULTI, {5, 2}), replyOf({0, 0, 0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETEEPBYTE, {5}), replyOf({0, 0}));
}

TEST_F(Handlers, RebootLosesWhatWasNotFlushed) {
    send(CMD_SYSTEM_SETFLASHEEPBYTE, {1, 11});
    send(CMD_SYSTEM_SETFLASHEEPFLUSH);
    send(CMD_SYSTEM_SETFLASHEEPBYTE, {1, 12});
    send(CMD_SYSTEM_SETEEPBYTE, {1, 13});
    EXPECT_EQ(send(CMD_SYSTEM_COMMON_SET_ITEM_VALUE, {CMDID_SYSTEM_REBOOT}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPBYTE, {1}), replyOf({0, 11}));
    EXPECT_EQ(send(CMD_SYSTEM_GETEEPBYTE, {1}), replyOf({0, 13}));
    EXPECT_EQ(published(), (std::vector<Published>{{kPower, {5}}, {kPower, {0}}}));
    EXPECT_EQ(send(CMD_SYSTEM_GETLASTPOWEROFFMODE), replyOf({0, 5}));
}

TEST_F(Handlers, PowerStatesAreToldOfOnce) {
    EXPECT_EQ(send(CMD_SYSTEM_GETLASTPOWEROFFMODE), replyOf({0, 0}));
    const std::pair<int, int> suspends[] = {{CMD_SYSTEM_SUSPEND, 1},
                                            {CMD_SYSTEM_SET_ENTER_STR_SUSPEND, 2},
                                            {CMD_SYSTEM_SET_ENTER_NORMAL_SUSPEND, 3},
                                            {CMD_SYSTEM_SET_ENTER_SHALLOW_SUSPEND, 4}};
    for (const auto& [command, state] : suspends) {
        EXPECT_EQ(send(command), replyOf({0}));
        EXPECT_EQ(send(command), replyOf({0}));
        EXPECT_EQ(send(CMD_SYSTEM_GETLASTPOWEROFFMODE), replyOf({0, state}));
        EXPECT_EQ(send(CMD_SYSTEM_RESUME, {state * 10}), replyOf({0}));
        EXPECT_EQ(published(), (std::vector<Published>{{kPower, {state}}, {kPower, {0}}}));
        EXPECT_EQ(send(CMD_SYSTEM_GETWAKEUPMODE), replyOf({0, state * 10}));
        EXPECT_EQ(send(CMD_SYSTEM_GETLASTPOWEROFFMODE), replyOf({0, state}));
    }
}

TEST_F(Handlers, EveryResumeWakesUp) {
    for (const int command : {CMD_SYSTEM_SET_STR_RESUME, CMD_SYSTEM_SET_SHALLOW_RESUME}) {
        send(CMD_SYSTEM_SUSPEND);
        published();
        EXPECT_EQ(send(command), replyOf({0}));
        EXPECT_EQ(published(), (std::vector<Published>{{kPower, {0}}}));
    }
}

TEST_F(Handlers, CecDevicesPluggedInAreListed) {
    const Wire disc = Wire::reply().i32(0).i32(4).i32(0).cstr("Disc player").cstr("1.0.0.0").cstr("HDMI1 Disc player");
    EXPECT_EQ(control("unplug 5"), "");
    EXPECT_EQ(hex(send(CMD_CEC_GETDEVICELISTALLINFO)), hex(disc.bytes()));
    EXPECT_EQ(mTrace, "DEVICES() -> 0: 4, 0, \"Disc player\", \"1.0.0.0\", \"HDMI1 Disc player\"");
    EXPECT_EQ(control("plug 3"), "");
    Wire both = disc;
    both.i32(3).i32(2).cstr("Set-top box").cstr("3.0.0.0").cstr("HDMI3 Set-top box");
    EXPECT_EQ(hex(send(CMD_CEC_GETDEVICELISTALLINFO)), hex(both.bytes()));
    EXPECT_EQ(control("unplug 3"), "");
    EXPECT_EQ(control("unplug 4"), "");
    EXPECT_EQ(send(CMD_CEC_GETDEVICELISTALLINFO), replyOf({0}));
}

TEST_F(Handlers, PluggingIsToldOfOnce) {
    EXPECT_EQ(control("plug 8"), "");
    EXPECT_EQ(control("plug 8"), "");
    EXPECT_EQ(control("unplug 8"), "");
    EXPECT_EQ(control("unplug 8"), "");
    EXPECT_EQ(published(), (std::vector<Published>{{kPlugged, {8, 1, 1}}, {kPlugged, {8, 1, 0}}}));
}

TEST_F(Handlers, ASelectedCecDevicePlaysUntilItIsUnplugged) {
    EXPECT_EQ(send(CMD_CEC_GET_PLAYING_DEVICE_LOGADDR), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {4}), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {4}), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_CEC_GET_PLAYING_DEVICE_LOGADDR), replyOf({0, 4}));
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {8}), replyOf({-109}));
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {99}), replyOf({-109}));
    EXPECT_NE(mTrace.find("(no CEC device has the logical address 99)"), std::string::npos) << mTrace;
    EXPECT_EQ(send(CMD_CEC_GET_PLAYING_DEVICE_LOGADDR), replyOf({0, 4}));
    EXPECT_EQ(control("unplug 4"), "");
    EXPECT_EQ(send(CMD_CEC_GET_PLAYING_DEVICE_LOGADDR), replyOf({0, 0}));
    EXPECT_EQ(published(), (std::vector<Published>{{kPlays, {4}}, {kPlugged, {4, 0, 0}}, {kPlays, {0}}}));
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {5}), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {0}), replyOf({0, 0}));
    EXPECT_EQ(published(), (std::vector<Published>{{kPlays, {5}}, {kPlays, {0}}}));
}

TEST_F(Handlers, ArcIsActiveWhileAnAudioSystemHangsOnItsPort) {
    EXPECT_EQ(send(CMD_CEC_GETARCSUPPORTED), replyOf({0, 1}));
    EXPECT_EQ(send(CMD_CEC_GETARCPORT), replyOf({0, 1}));
    EXPECT_EQ(send(CMD_CEC_GETARCCONNECTSTATE), replyOf({0, 1}));
    control("unplug 5");
    EXPECT_EQ(send(CMD_CEC_GETARCCONNECTSTATE), replyOf({0, 0}));
    control("plug 5");
    EXPECT_EQ(send(CMD_CEC_GETARCCONNECTSTATE), replyOf({0, 1}));
}

TEST_F(Handlers, TeletextGreetsOnceItIsAskedForInWhateverOrder) {
    const std::vector<std::vector<int>> orders{
        {CMD_TV_TTX_INIT, CMD_TV_TTX_OPEN, CMD_TV_TTX_REGISTCALLBACK},
        {CMD_TV_TTX_REGISTCALLBACK, CMD_TV_TTX_INIT, CMD_TV_TTX_OPEN},
    };
    for (const std::vector<int>& order : orders) {
        EXPECT_EQ(send(order[0]), replyOf({0}));
        EXPECT_EQ(send(order[1]), replyOf({0}));
        EXPECT_EQ(published(), std::vector<Published>{});
        EXPECT_EQ(send(order[2]), replyOf({0}));
        const PublishedEvents greeting = mTelevision.takeEvents();
        ASSERT_EQ(greeting.size(), 4U);
        for (const PublishedEvent& event : greeting) {
            EXPECT_EQ(event.identifier, kBlockOfTypeOne);
            EXPECT_EQ(event.payload.substr(0, 4), std::string("\x2a\0\0\0", 4));
            EXPECT_EQ(event.payload.size(), 46U);
        }
        // Row 0 of magazine 1, then row 1; the text has odd parity.
        EXPECT_EQ(greeting[0].payload.substr(4, 2), "\x02\x15");
        EXPECT_EQ(greeting[1].payload.substr(4, 2), "\xC7\x15");
        EXPECT_EQ(greeting[2].payload.substr(6, 6), "\x20\x20\x54\x68\xE9\x73");
        EXPECT_EQ(send(order[2]), replyOf({0}));
        EXPECT_EQ(published(), std::vector<Published>{});
        send(CMD_TV_TTX_UNREGISTCALLBACK);
        send(CMD_TV_TTX_CLOSE);
        send(CMD_TV_TTX_DEINIT);
    }
}

TEST_F(Handlers, VbiLinesReachTheClient) {
    startTeletext();
    EXPECT_EQ(control("vbi 1 0a00FF7f"), "");
    EXPECT_EQ(control("vbi 65535"), "");
    EXPECT_EQ(published(), (std::vector<Published>{{kBlockOfTypeOne, {4, 0x7fff000a}}, {0x12FFFF, {0}}}));
}

TEST_F(Handlers, VbiEndsWithAnyOfItsThreeConditions) {
    for (const auto& [off, on] :
         {std::pair(CMD_TV_TTX_DEINIT, CMD_TV_TTX_INIT), std::pair(CMD_TV_TTX_CLOSE, CMD_TV_TTX_OPEN),
          std::pair(CMD_TV_TTX_UNREGISTCALLBACK, CMD_TV_TTX_REGISTCALLBACK)}) {
        startTeletext();
        EXPECT_EQ(send(off), replyOf({0}));
        EXPECT_EQ(control("vbi 1 00"), "VBI is not initialised, open and registered: no client takes the block");
        EXPECT_EQ(published(), std::vector<Published>{});
        send(on);
        mTelevision.takeEvents();
        EXPECT_EQ(control("vbi 1 00"), "");
    }
}

TEST_F(Handlers, AVbiBlockFitsAnEvent) {
    startTeletext();
    EXPECT_EQ(control("vbi 1 " + std::string(2 * 65532, '0')), "");
    EXPECT_EQ(published().size(), 1U);
    EXPECT_EQ(control("vbi 1 " + std::string(2 * 65533, '0')), "a VBI block holds at most 65532 bytes");
    EXPECT_EQ(published().size(), 0U);
}

TEST_F(Handlers, ControlLinesThatSayNothingDoNothing) {
    for (const char* const line : {"", "   \t", "# plug 8", "#plug 8"}) {
        EXPECT_EQ(control(line), "");
    }
    EXPECT_EQ(published(), std::vector<Published>{});
}

TEST_F(Handlers, BadControlLinesAreRefused) {
    startTeletext();
    EXPECT_EQ(control("explode 3").rfind("there is no control command 'explode'; allowed: cec, ", 0), 0U);
    for (const char* const line : {"plug x", "plug 4x", "plug 99999999999"}) {
        EXPECT_NE(control(line).find("' is not one of "), std::string::npos) << line;
    }
    for (const char* const line : {"plug", "plug 4 5"}) {
        EXPECT_EQ(control(line), "plug takes a source, or 'cec' and the logical address of a CEC device");
    }
    EXPECT_EQ(control("unplug 9"), "there is no CEC device with the logical address 9");
    EXPECT_EQ(control("plug -4"), "there is no CEC device with the logical address -4");
    for (const char* const line :
         {"vbi", "vbi 0 00", "vbi 65536 00", "vbi -1 00", "vbi 1 0", "vbi 1 0g", "vbi 1 00 00", "vbi x 00"}) {
        EXPECT_EQ(control(line), "vbi takes a type from 1 to 65535 and the data in hexadecimal") << line;
    }
    EXPECT_EQ(published(), std::vector<Published>{});
}

} // namespace

} // namespace kelutv::simulator

// These stand in for the generated table.
namespace kelutv::wire {
Rows<Command> allCommands() { return simulator::kCommands; }

Rows<Item> allItems() { return {}; }

Rows<StateKey> allStates() { return {}; }

Rows<Enumeration> allEnumerations() { return {}; }

Rows<Enumerator> allEnumerators() { return {}; }

} // namespace kelutv::wire
