// The television's EEP, CEC devices, power states, languages and VBI data, seen from another process.

#include "simulator/Simulator.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"
#include "support/Wire.h"

#include <kelutv/commands.h>
#include <kelutv/events.h>
#include <kelutv/items.h>

#include <keluem/emal.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <iterator>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace kelutv::test {

namespace {

constexpr int kTvArea = 0x8A00;
constexpr int kAreaLength = 509;
constexpr std::size_t kAreaOffset = 0x10000 + kTvArea;

Bytes send(int command, std::initializer_list<std::int32_t> arguments = {}) {
    return SimulatorEnvironment::transact(requestOf(command, arguments));
}

/** The events of one module that reached this process. */
class Listener {
public:
    explicit Listener(unsigned int module) : mModule(module) {
        sEvents.clear();
        EXPECT_EQ(EMAL_AddListener(module, &Listener::onEvent), 0);
    }
    ~Listener() { EMAL_RemoveListener(mModule); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    struct Event {
        unsigned int id;
        Bytes payload;
    };

    static std::vector<Event> take(std::size_t count) {
        EXPECT_TRUE(eventually([count] {
            const std::lock_guard<std::mutex> lock(sMutex);
            return sEvents.size() >= count;
        }));
        const std::lock_guard<std::mutex> lock(sMutex);
        return std::exchange(sEvents, {});
    }

private:
    static void onEvent(unsigned int id, void* data, unsigned int length, void*) {
        const auto* const bytes = static_cast<const std::uint8_t*>(data);
        const std::lock_guard<std::mutex> lock(sMutex);
        sEvents.push_back({id, Bytes(bytes, bytes + length)});
    }

    static std::mutex sMutex;
    static std::vector<Event> sEvents;
    const unsigned int mModule;
};

std::mutex Listener::sMutex;
std::vector<Listener::Event> Listener::sEvents;

class Devices : public ::testing::Test {
protected:
    // One directory for all tests: a process looks for its events in one place.
    static void SetUpTestSuite() { sRuntimeDir.emplace(); }
    static void TearDownTestSuite() { sRuntimeDir.reset(); }

    static std::string eepPath() {
        return sRuntimeDir->path() + '/' + ::testing::UnitTest::GetInstance()->current_test_info()->name();
    }

    static std::string areaInFile() {
        std::ifstream file(eepPath(), std::ios::binary);
        const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        EXPECT_EQ(content.size(), 0x20000U);
        return content.substr(kAreaOffset, kAreaLength);
    }

    static void kill(Simulator& simulator) {
        simulator.process().kill(SIGKILL);
        ASSERT_TRUE(simulator.process().wait());
    }

    static std::optional<RuntimeDir> sRuntimeDir;
};

std::optional<RuntimeDir> Devices::sRuntimeDir;

TEST_F(Devices, EepOutlivesAKill) {
    {
        Simulator simulator({"--eep", eepPath()});
        EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPMULTI, {kTvArea, 3, 1, 2, 255}), replyOf({0}));
        EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPFLUSH), replyOf({0}));
        EXPECT_EQ(send(CMD_SYSTEM_SETFLASHEEPBYTE, {kTvArea, 9}), replyOf({0}));
        EXPECT_EQ(send(CMD_SYSTEM_SETEEPBYTE, {kTvArea, 77}), replyOf({0}));
        kill(simulator);
    }
    Simulator simulator({"--eep", eepPath()});
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPMULTI, {kTvArea, 4}), replyOf({0, 1, 2, 255, 0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETEEPBYTE, {kTvArea}), replyOf({0, 77}));
    EXPECT_EQ(send(CMD_SYSTEM_GETFLASHEEPBYTE, {0x10000}), replyOf({-107}));
}

/** Fills the area with one byte after another, each time flushed, until the simulator is gone. */
void fillArea(std::atomic<int>& flushes) {
    try {
        for (int round = 0;; ++round) {
            Wire request = Wire::request(CMD_SYSTEM_SETFLASHEEPMULTI).i32(kTvArea).i32(kAreaLength);
            for (int i = 0; i < kAreaLength; ++i) {
                request.i32(1 + round % 255);
            }
            SimulatorEnvironment::transact(request.bytes());
            send(CMD_SYSTEM_SETFLASHEEPFLUSH);
            ++flushes;
        }
    } catch (const std::runtime_error&) {
        // The simulator has ended.
    }
}

TEST_F(Devices, EepAreaIsNeverTornByAKill) {
    for (int run = 0; run < 30; ++run) {
        Simulator simulator({"--eep", eepPath()});
        std::atomic<int> flushes{0};
        std::thread writer([&flushes] { fillArea(flushes); });
        EXPECT_TRUE(eventually([&flushes] { return flushes >= 2; }));
        std::this_thread::sleep_for(std::chrono::microseconds(run * 97));
        kill(simulator);
        writer.join();
        const std::string area = areaInFile();
        EXPECT_EQ(area, std::string(area.size(), area[0])) << "torn in run " << run;
        EXPECT_NE(area[0], '\0');
    }
}

TEST_F(Devices, CecDevicesAreListedAndPlay) {
    Simulator simulator;
    const Wire expected = Wire::reply()
                              .i32(0)
                              .i32(4)
                              .i32(0)
                              .cstr("Disc player")
                              .cstr("1.0.0.0")
                              .cstr("HDMI1 Disc player")
                              .i32(5)
                              .i32(1)
                              .cstr("Soundbar")
                              .cstr("2.0.0.0")
                              .cstr("HDMI2 Soundbar");
    EXPECT_EQ(hex(send(CMD_CEC_GETDEVICELISTALLINFO)), hex(expected.bytes()));
    const Listener listener(KELU_EM_MODE_CEC);
    EXPECT_EQ(send(CMD_CEC_ACTIVATE_CEC_DEVICE, {5}), replyOf({0, 0}));
    EXPECT_EQ(send(CMD_CEC_GET_PLAYING_DEVICE_LOGADDR), replyOf({0, 5}));
    const auto events = Listener::take(1);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].id, 0x1A0002U);
    EXPECT_EQ(events[0].payload, replyOf({5}));
    simulator.takeTrace();
    EXPECT_EQ(send(CMD_CEC_SEND_CEC_COMMAND, {68, 1}), replyOf({0}));
    EXPECT_NE(simulator.takeTrace().at(0).find("IrCommand=68 E_MW_CEC_UI_CMD_PLAY"), std::string::npos);
}

TEST_F(Devices, VbiBlocksTravelAsEvents) {
    const Simulator simulator;
    const Listener listener(KELU_EM_MODE_TTX);
    EXPECT_EQ(send(CMD_TV_TTX_INIT), replyOf({0}));
    EXPECT_EQ(send(CMD_TV_TTX_OPEN), replyOf({0}));
    EXPECT_EQ(send(CMD_TV_TTX_REGISTCALLBACK), replyOf({0}));
    const auto events = Listener::take(4);
    ASSERT_EQ(events.size(), 4U);
    for (const Listener::Event& event : events) {
        EXPECT_EQ(event.id, 0x120001U);
        std::uint32_t length = 0;
        std::memcpy(&length, event.payload.data(), sizeof(length));
        EXPECT_EQ(length, 42U);
        EXPECT_EQ(event.payload.size(), sizeof(length) + length);
    }
}

TEST_F(Devices, RebootAndSuspensionAreToldOf) {
    const Simulator simulator;
    const Listener listener(KELU_EM_MODE_COMMON);
    EXPECT_EQ(send(CMD_SYSTEM_SUSPEND), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_RESUME, {7}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETWAKEUPMODE), replyOf({0, 7}));
    EXPECT_EQ(send(CMD_SYSTEM_COMMON_SET_ITEM_VALUE, {CMDID_SYSTEM_REBOOT, 0, 0, 0, 0}), replyOf({0}));
    EXPECT_EQ(send(CMD_SYSTEM_GETLASTPOWEROFFMODE), replyOf({0, 5}));
    std::vector<Bytes> states;
    for (const Listener::Event& event : Listener::take(4)) {
        EXPECT_EQ(event.id, 0x80002U);
        states.push_back(event.payload);
    }
    EXPECT_EQ(states, (std::vector<Bytes>{replyOf({1}), replyOf({0}), replyOf({5}), replyOf({0})}));
}

/** The first words of an item's block of 255. */
std::vector<std::int32_t> itemOf(int item, std::size_t count) {
    const Bytes reply = send(CMD_SYSTEM_COMMON_GET_ITEM_VALUE, {item, 0, 0});
    EXPECT_EQ(reply.size(), 256 * sizeof(std::int32_t));
    std::vector<std::int32_t> words(count);
    std::memcpy(words.data(), reply.data() + sizeof(std::int32_t), count * sizeof(words[0]));
    return words;
}

TEST_F(Devices, LanguagesAreListedAndKept) {
    const Simulator simulator;
    EXPECT_EQ(itemOf(CMDID_SYSTEM_GET_MENU_LANGUAGE, 2), (std::vector<std::int32_t>{1, 0}));
    EXPECT_EQ(send(CMD_SYSTEM_COMMON_SET_ITEM_VALUE, {CMDID_SYSTEM_SET_MENU_LANGUAGE, 8, 0, 0, 0}), replyOf({0}));
    EXPECT_EQ(itemOf(CMDID_SYSTEM_GET_MENU_LANGUAGE, 2), (std::vector<std::int32_t>{8, 0}));
    EXPECT_EQ(itemOf(CMDID_SYSTEM_GET_LANGUAGE_LIST, 9), (std::vector<std::int32_t>{7, 1, 0, 3, 8, 9, 11, 14, 0}));
    EXPECT_EQ(itemOf(CMDID_SYSTEM_GET_SUBTITLE_AND_AUDIO_LANGUAGE, 6), (std::vector<std::int32_t>{4, 1, 8, 9, 11, 0}));
}

} // namespace

} // namespace kelutv::test
