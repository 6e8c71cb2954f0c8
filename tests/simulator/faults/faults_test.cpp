// What the library makes of answers that go wrong, through the faults of the simulator.

#include "simulator/ControlPipe.h"
#include "simulator/Simulator.h"
#include "simulator/VolumeClient.h"
#include "support/JoinedTests.h"
#include "support/RuntimeDir.h"

#include <kelutv/HdmiCEC.h>
#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstring>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

namespace kelutv::test {

namespace {

/** One simulator for the whole program, since the library looks its service up once. */
class World : public ::testing::Environment {
public:
    void SetUp() override {
        mRuntimeDir = std::make_unique<RuntimeDir>();
        mPipe = std::make_unique<ControlPipe>(mRuntimeDir->path() + "/control");
        mSimulator = std::make_unique<Simulator>(std::vector<std::string>{"--control", mPipe->path()});
    }

    void TearDown() override {
        mSimulator->process().kill(SIGTERM);
        EXPECT_EQ(mSimulator->process().exitCode(), 0);
        mSimulator.reset();
        mRuntimeDir.reset();
    }

    Simulator& simulator() { return *mSimulator; }
    std::string say(const std::string& line) { return mPipe->say(*mSimulator, line); }

private:
    std::unique_ptr<RuntimeDir> mRuntimeDir;
    std::unique_ptr<ControlPipe> mPipe;
    std::unique_ptr<Simulator> mSimulator;
};

World& world = addEnvironment(std::make_unique<World>());

constexpr int kGuard = 0x77777777;
constexpr int kRoom = 300;

/** Room for what a call writes; what it leaves alone is told as `-`. */
class Numbers {
public:
    operator int*() { return mNumbers.data(); }

    std::string text() const {
        const auto end = std::find_if(mNumbers.rbegin(), mNumbers.rend(), [](int number) { return number != kGuard; });
        std::string result;
        for (auto number = mNumbers.begin(); number != end.base(); ++number) {
            result += (result.empty() ? "" : ",") + (*number == kGuard ? "-" : std::to_string(*number));
        }
        return '[' + shortened(result) + ']';
    }

private:
    static std::string shortened(const std::string& text) {
        constexpr std::size_t kLongest = 40;
        return text.size() > kLongest ? text.substr(0, kLongest) + ".." : text;
    }

    std::vector<int> mNumbers = std::vector<int>(kRoom, kGuard);
};

std::string withNumbers(const std::function<int(int* numbers, int* count)>& call) {
    Numbers numbers;
    int count = kGuard;
    const int result = call(numbers, &count);
    return std::to_string(result) + ' ' + (count == kGuard ? "-" : std::to_string(count)) + ' ' + numbers.text();
}

std::string withText(const std::function<int(char* text)>& call) {
    char text[kRoom] = "untouched";
    const int result = call(text);
    return std::to_string(result) + ' ' + text;
}

template <typename List> std::string listed(const List& list) {
    std::string result;
    for (const auto& entry : list) {
        result += (result.empty() ? "" : ",") + entry;
    }
    return '[' + result + ']';
}

std::string setVolume() { return std::to_string(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 20)); }

std::string getVolume() { return std::to_string(linux_tv_Audio_getVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER)); }

std::string getMute() { return std::to_string(linux_tv_Audio_getMute(KELU_TV_AUDIO_CHANNEL_SPEAKER)); }

std::string getRecord() {
    KELU_TV_SND_DRC_ATTR_S record{7, 8};
    const int result = linux_tv_Audio_getDRCAttr(&record);
    return std::to_string(result) + ' ' + std::to_string(record.intthrhd) + ' ' + std::to_string(record.intLimit);
}

std::string getTiming() {
    TimingScreen timing{};
    timing.width = 7;
    const int result = linux_tv_SourceManager_getTimingInfo(&timing);
    return std::to_string(result) + ' ' + std::to_string(timing.width) + 'x' + std::to_string(timing.height);
}

std::string getTexts() { return listed(Audio::instance()->getOutputList()); }

std::string getModes() {
    return withNumbers(
        [](int* modes, int* count) { return linux_tv_Picture_getPicModeEnable(KELU_TV_HDR_TYPE_HDR10, modes, count); });
}

std::string getItem() { return std::to_string(linux_tv_Audio_getMaxVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER)); }

std::string getItemList() { return withNumbers(linux_tv_Audio_getNewOutputList); }

std::string getCurve() { return withNumbers(linux_tv_Factory_getSoundCurveCtlData); }

std::string getBarCode() { return withText(linux_tv_Factory_getBarCode); }

std::string getPlatform() { return withText(linux_tv_Factory_getPlatform); }

std::string getDevices() {
    std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S> devices;
    const int result = linux_tv_HdmiCEC_getDeviceListInfo(&devices);
    std::vector<std::string> names;
    for (const KELU_TV_CEC_DEVICE_INFO_SORTED_S& device : devices) {
        names.push_back(device.deVName);
    }
    return std::to_string(result) + ' ' + listed(names);
}

std::string getBlock() {
    int written[] = {1, 2, 3, 4};
    SystemSetting::instance()->setEepMulti(0, written, 4);
    return withNumbers([](int* bytes, int*) { return SystemSetting::instance()->getEepMulti(0, bytes, 4); });
}

struct Case {
    const char* name;
    const char* target;
    std::string (*call)();
    const char* right;
    /** What an effect makes of it. */
    std::vector<std::pair<const char*, const char*>> wrong;
};

void PrintTo(const Case& family, std::ostream* out) { *out << family.name; }

const Case kCases[] = {
    {"Set",
     "CMD_AUDIO_SETVOLUME",
     setVolume,
     "0",
     {{"error -5", "-5"},
      {"short 0", "0"},
      {"short 3", "0"},
      {"long 64", "0"},
      {"count 9", "0"},
      {"unterminated", "0"}}},
    {"Value",
     "CMD_AUDIO_GETVOLUME",
     getVolume,
     "20",
     {{"error -5", "-1"}, {"error 0", "0"}, {"short 4", "0"}, {"short 7", "0"}, {"short 0", "0"}, {"long 64", "20"}}},
    {"Flag", "CMD_AUDIO_GETMUTE", getMute, "0", {{"error -5", "1"}, {"short 4", "0"}, {"long 64", "0"}}},
    {"Record",
     "CMD_AUDIO_GETDRCATTR",
     getRecord,
     "0 20 0",
     {{"error -5", "-1 7 8"}, {"short 4", "0 0 0"}, {"short 8", "0 20 0"}, {"long 64", "0 20 0"}}},
    {"RecordByValue",
     "CMD_SOURCE_GETTIMMINGINFO",
     getTiming,
     "0 720x576",
     {{"error -5", "-1 7x0"}, {"short 4", "-1 7x0"}, {"short 8", "0 720x0"}, {"long 64", "0 720x576"}}},
    {"Texts",
     "CMDID_AUDIO_GET_OUTPUT_LIST",
     getTexts,
     "[speaker,headphone,spdif,arc,bluetooth]",
     {{"error -5", "[]"},
      {"short 4", "[]"},
      {"short 18", "[speaker]"},
      {"long 5", "[speaker,headphone,spdif,arc,bluetooth]"},
      {"unterminated", "[speaker,headphone,spdif,arc]"}}},
    {"List",
     "CMD_PICTURE_GETPICMODEENABLE",
     getModes,
     "0 4 [0,1,2,3]",
     {{"error -5", "-1 - []"},
      {"short 4", "-1 - []"},
      {"short 15", "0 2 [0,1]"},
      {"long 6", "0 5 [0,1,2,3,1515870810]"},
      {"count 99", "0 4 [0,1,2,3]"}}},
    {"Item",
     "CMDID_AUDIO_GET_MAX_VOLUME",
     getItem,
     "100",
     {{"error -5", "0"}, {"short 4", "0"}, {"long 64", "100"}, {"count 7", "7"}}},
    {"ItemList",
     "CMDID_AUDIO_GET_SUPPORTED_NEW_AUDIO_OUTPUT_LIST",
     getItemList,
     "0 5 [0,1,2,3,4]",
     {{"error -5", "-1 - []"},
      {"short 4", "-1 - []"},
      {"short 16", "0 5 [0,1,0,0,0]"},
      {"count 2147483647", "0 2147483647 [0,1,2,3,4,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,..]"},
      {"count -1", "-1 - []"},
      {"count 2", "0 2 [0,1]"}}},
    {"CountedList",
     "CMD_FACTORY_GET_CTL_VOLUME",
     getCurve,
     "0 5 [0,25,50,75,100]",
     {{"error -5", "-1 - []"},
      {"short 4", "0 0 []"},
      {"short 16", "0 5 [0,25,0,0,0]"},
      {"count 2147483647", "0 2147483647 [0,25,50,75,100,0,0,0,0,0,0,0,0,0,0,0,0,0..]"},
      {"count -1", "0 -1 []"},
      {"long 400", "0 5 [0,25,50,75,100]"}}},
    {"Text",
     "CMD_FACTORY_GETBARCODE",
     getBarCode,
     "0 TV550000000000000000001",
     {{"error -5", "0 error barcode"},
      {"short 4", "0 error barcode"},
      {"short 20", "0 error barcode"},
      {"unterminated", "0 error barcode"},
      {"long 64", "0 TV550000000000000000001"},
      {"count 99", "0 TV550000000000000000001"}}},
    {"TextLogged",
     "CMD_FACTORY_GETPLATFORM",
     getPlatform,
     "0 KTV-1000",
     {{"error -5", "0 default"}, {"unterminated", "0 default"}}},
    {"Devices",
     "CMD_CEC_GETDEVICELISTALLINFO",
     getDevices,
     "0 [Disc player,Soundbar]",
     {{"error -5", "-1 []"},
      {"short 4", "0 []"},
      {"short 30", "0 []"},
      {"unterminated", "0 [Disc player]"},
      {"long 64", "0 [Disc player,Soundbar]"}}},
    {"Block",
     "CMD_SYSTEM_GETEEPMULTI",
     getBlock,
     "0 - [1,2,3,4]",
     {{"error -5", "-1 - []"},
      {"short 4", "0 - [0,0,0,0]"},
      {"short 12", "0 - [1,2,0,0]"},
      {"long 64", "0 - [1,2,3,4]"}}},
};

class Fault : public ::testing::TestWithParam<Case> {};

TEST_P(Fault, MakesTheAnswerWrongOnce) {
    const Case& family = GetParam();
    EXPECT_EQ(family.call(), family.right);
    for (const auto& [effect, expected] : family.wrong) {
        ASSERT_EQ(world.say(std::string("fault ") + family.target + ' ' + effect + " once"), "");
        EXPECT_EQ(family.call(), expected) << effect;
        EXPECT_EQ(family.call(), family.right) << "after " << effect;
    }
}

INSTANTIATE_TEST_SUITE_P(InEveryFamily, Fault, ::testing::ValuesIn(kCases),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(Faults, AreToldOfInTheTrace) {
    ASSERT_EQ(world.say("fault 0x2009 error -5 once"), "");
    world.simulator().takeTrace();
    EXPECT_EQ(getVolume(), "-1");
    const std::string request =
        '[' + std::to_string(::getpid()) + "] CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER)";
    EXPECT_EQ(world.simulator().takeTrace(),
              (std::vector<std::string>{request + " meets fault 0x2009 error -5 once", request + " -> -5 (a fault)"}));
}

TEST(Faults, RefusedSetsChangeNothing) {
    ASSERT_EQ(world.say("fault CMD_AUDIO_SETVOLUME error -7 once"), "");
    EXPECT_EQ(linux_tv_Audio_setVolume(KELU_TV_AUDIO_CHANNEL_SPEAKER, 77), -7);
    EXPECT_EQ(getVolume(), "20");
}

TEST(Faults, HitTheNthRequestAndAsManyAsTold) {
    ASSERT_EQ(world.say("fault CMD_AUDIO_GETVOLUME nth 2 error -5"), "");
    ASSERT_EQ(world.say("fault CMD_AUDIO_GETVOL* nth 4 times 2 error -5"), "");
    std::vector<std::string> answers(7);
    std::generate(answers.begin(), answers.end(), getVolume);
    EXPECT_EQ(answers, (std::vector<std::string>{"20", "-1", "20", "-1", "-1", "20", "20"}));
}

TEST(Faults, LastUntilTheyAreCleared) {
    ASSERT_EQ(world.say("fault any error -5"), "");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(getVolume() + getItem(), "-10");
    }
    ASSERT_EQ(world.say("fault clear"), "");
    EXPECT_EQ(getVolume(), "20");
}

TEST(Faults, OfOneAnswerAddUp) {
    ASSERT_EQ(world.say("fault CMD_FACTORY_GETBARCODE unterminated once"), "");
    ASSERT_EQ(world.say("fault CMD_FACTORY_GETBARCODE long 4 once"), "");
    EXPECT_EQ(getBarCode(), "0 error barcode");
    EXPECT_EQ(getBarCode(), "0 TV550000000000000000001");
}

TEST(Faults, DelayTheAnswer) {
    ASSERT_EQ(world.say("fault CMD_AUDIO_GETVOLUME delay 50ms once"), "");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(getVolume(), "20");
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
}

TEST(Faults, HitOneProcessOnly) {
    ASSERT_EQ(world.say("fault CMD_AUDIO_GETVOLUME from " + std::to_string(::getpid()) + " error -5"), "");
    EXPECT_EQ(getVolume(), "-1");
    VolumeClient other(1);
    EXPECT_EQ(other.answers(), "20\n");
    EXPECT_EQ(getVolume(), "-1");
    ASSERT_EQ(world.say("fault clear"), "");
}

TEST(Faults, LetOtherProcessesGoOnMeanwhile) {
    ASSERT_EQ(world.say("fault CMD_AUDIO_GETVOLUME once delay 3600s"), "");
    world.simulator().takeTrace();
    VolumeClient delayed(1);
    ASSERT_TRUE(
        world.simulator().process().output().waitFor('[' + std::to_string(delayed.pid()) + "] CMD_AUDIO_GETVOLUME("));
    VolumeClient other(2);
    EXPECT_EQ(other.answers(), "20\n20\n");
    EXPECT_EQ(setVolume(), "0");
    EXPECT_TRUE(delayed.isRunning());
}

} // namespace

} // namespace kelutv::test
