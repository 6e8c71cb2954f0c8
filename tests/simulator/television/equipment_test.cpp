// Sources and CEC devices while the television runs, states set from outside, and the text that keeps all of it.

#include "simulator/files/JsonValues.h"
#include "simulator/television/Equipment.h"
#include "simulator/television/Snapshot.h"
#include "simulator/television/StateAccess.h"
#include "wire/events/Payload.h"

#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

namespace {

constexpr char kCurrent[] = "sourcemanager.curSource";
constexpr char kStatus[] = "sourcemanager.signalStatus";
constexpr char kTiming[] = "sourcemanager.timingInfo";
constexpr char kAvailable[] = "sourcemanager.availSourceList";
constexpr std::int32_t kMain = KELU_TV_WINDOW_MAIN;
const CecDevice kPlayer{11, 3, "Second player", "4.0.0.0", "HDMI4 Second player", true};

wire::Values numbers(std::initializer_list<std::int32_t> values) { return {values.begin(), values.end()}; }

class Running : public ::testing::Test {
protected:
    wire::Values read(const char* state, const wire::Values& indexes = {}) const {
        return readState(mEquipment, *wire::findState(state), indexes);
    }

    std::string set(const char* state, const wire::Values& indexes, const wire::Values& values) {
        const auto fault = setState(mEquipment, *wire::findState(state), indexes, values);
        return fault ? fault->text : "";
    }

    Signal preset(const char* name) const { return mEquipment.configuration.signals().at(name); }

    /** The events in the order in which they would be published. */
    std::vector<unsigned int> published() {
        std::vector<unsigned int> events;
        for (const Change& change : mEquipment.state.takeChanges()) {
            events.push_back(change.event);
        }
        for (const PublishedEvent& event : std::exchange(mEquipment.events, {})) {
            events.push_back(event.identifier);
        }
        return events;
    }

    bool isAvailable(std::int32_t source) const {
        const wire::Values sources = read(kAvailable);
        return std::find(sources.begin(), sources.end(), wire::Value(source)) != sources.end();
    }

    void load(const std::string& text) { restoreSnapshot(mEquipment, JsonFile(text, "state.json").root()); }

    Equipment mEquipment{Configuration::standard(), EepStore()};
    Sources& mSources = mEquipment.sources;
};

using Events = std::vector<unsigned int>;

TEST_F(Running, AnUnpluggedSourceLosesItsSignalInTheMainWindow) {
    ASSERT_EQ(set(kCurrent, numbers({kMain}), numbers({KELU_TV_SRC_HDMI2})), "");
    published();
    mSources.plug(KELU_TV_SRC_HDMI2, false);
    EXPECT_EQ(published(), (Events{0x80001, 0x40002, 0x40003, 0x40004}));
    EXPECT_EQ(read(kStatus), numbers({0}));
    EXPECT_EQ(read("video.signalLock"), numbers({0}));
    EXPECT_EQ(read(kTiming), numbers({0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(read("sourcemanager.offlineSigStatus", numbers({KELU_TV_SRC_HDMI2})), numbers({0}));
    EXPECT_FALSE(isAvailable(KELU_TV_SRC_HDMI2));
    mSources.plug(KELU_TV_SRC_HDMI2, false);
    EXPECT_EQ(published(), Events{});
    mSources.plug(KELU_TV_SRC_HDMI2, true);
    EXPECT_EQ(published(), (Events{0x80001, 0x40002, 0x40003, 0x40004}));
    EXPECT_EQ(read(kTiming), numbers({3840, 2160, 60, 0, 1, 0, 1, 0, 0}));
    EXPECT_TRUE(isAvailable(KELU_TV_SRC_HDMI2));
}

TEST_F(Running, ASourceThatIsNotShownTellsOnlyOfItself) {
    mSources.plug(KELU_TV_SRC_HDMI1, false);
    const PublishedEvents events = std::exchange(mEquipment.events, {});
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].identifier, 0x40004U);
    EXPECT_EQ(events[0].payload, wire::payloadOf({KELU_TV_SRC_HDMI1, 0, 0}));
    EXPECT_EQ(events[0].text, "KELU_TV_SRC_HDMI1 is unplugged, without a signal");
    EXPECT_EQ(published(), Events{});
    EXPECT_EQ(read("sourcemanager.sourceList").size(), 13U);
    ASSERT_EQ(set(kCurrent, numbers({kMain}), numbers({KELU_TV_SRC_HDMI1})), "");
    EXPECT_EQ(read(kStatus), numbers({0}));
}

TEST_F(Running, ASignalThatChangesIsShownAtOnce) {
    mSources.setSignal(KELU_TV_SRC_ATV, preset("ntsc"));
    EXPECT_EQ(published(), Events{0x40003});
    EXPECT_EQ(read("picture.realColorSystem"), numbers({KELU_TV_CLRSYS_NTSC}));
    EXPECT_EQ(read("video.mode625"), numbers({0}));
    mSources.setSignal(KELU_TV_SRC_ATV, mEquipment.configuration.noSignal());
    EXPECT_EQ(published(), (Events{0x40002, 0x40003, 0x40004}));
    EXPECT_FALSE(mSources.hasSignal(KELU_TV_SRC_ATV));
    EXPECT_TRUE(mSources.isPlugged(KELU_TV_SRC_ATV));
    mSources.setSignal(KELU_TV_SRC_HDMI4, preset("2160p60-hdr10"));
    EXPECT_EQ(published(), Events{0x40004});
    EXPECT_TRUE(isAvailable(KELU_TV_SRC_HDMI4));
}

TEST_F(Running, ASignalThatChangesUnpluggedWaitsForThePlug) {
    mSources.plug(KELU_TV_SRC_ATV, false);
    published();
    mSources.setSignal(KELU_TV_SRC_ATV, preset("1080p60"));
    EXPECT_EQ(published(), Events{});
    mSources.plug(KELU_TV_SRC_ATV, true);
    EXPECT_EQ(read(kTiming), preset("1080p60").at(wire::findState(kTiming)));
}

TEST_F(Running, ADeselectedSourceStaysDark) {
    ASSERT_EQ(set("sourcemanager.deselected", numbers({KELU_TV_SRC_ATV}), numbers({1})), "");
    mSources.setSignal(KELU_TV_SRC_ATV, preset("1080p60"));
    EXPECT_EQ(read(kStatus), numbers({0}));
    ASSERT_EQ(set(kCurrent, numbers({kMain}), numbers({KELU_TV_SRC_ATV})), "");
    EXPECT_EQ(read(kTiming), preset("1080p60").at(wire::findState(kTiming)));
}

TEST_F(Running, CecDevicesComeAndGo) {
    EXPECT_EQ(mEquipment.cec.add(kPlayer), std::nullopt);
    EXPECT_EQ(published(), Events{0x1A0001});
    EXPECT_EQ(mEquipment.cec.devices().back().name, "Second player");
    EXPECT_TRUE(mEquipment.cec.select(11));
    EXPECT_TRUE(mEquipment.cec.remove(11));
    EXPECT_EQ(published(), (Events{0x1A0002, 0x1A0001, 0x1A0002}));
    EXPECT_EQ(mEquipment.cec.playing(), 0);
    EXPECT_EQ(mEquipment.cec.all().size(), 4U);
    EXPECT_FALSE(mEquipment.cec.remove(11));
}

TEST_F(Running, CecDevicesThatCannotBeAreNotAdded) {
    CecDevice device = kPlayer;
    device.logAddr = 4;
    EXPECT_EQ(mEquipment.cec.add(device), "there is a CEC device with the logical address 4 already");
    device.logAddr = 15;
    EXPECT_EQ(mEquipment.cec.add(device), "logAddr goes from 1 to 14, it cannot be 15");
    device = kPlayer;
    device.phyAddr = "4";
    EXPECT_EQ(mEquipment.cec.add(device), "phyAddr has four hexadecimal digits as in 1.0.0.0, it cannot be '4'");
    device = kPlayer;
    device.hdmiDevPort = -1;
    EXPECT_EQ(mEquipment.cec.add(device), "hdmiDevPort is the number of a port, it cannot be -1");
    device = kPlayer;
    device.name.assign(256, 'x');
    EXPECT_EQ(mEquipment.cec.add(device), "name has at most 255 bytes, not 256");
    device = kPlayer;
    device.listText.assign(256, 'x');
    EXPECT_EQ(mEquipment.cec.add(device), "listText has at most 255 bytes, not 256");
    EXPECT_EQ(mEquipment.cec.all().size(), 4U);
    EXPECT_EQ(published(), Events{});
}

/** 2 MiB for what clients set: 128 for each state with its keys, 16 for each number. */
TEST_F(Running, KeepOnlySoMuchOfWhatClientsSet) {
    const wire::StateKey& volume = *wire::findState("audio.volume");
    std::int32_t kept = 0;
    while (!setState(mEquipment, volume, {kept}, {std::int32_t{7}}) && kept < 100000) {
        ++kept;
    }
    EXPECT_EQ(kept, 2 * 1024 * 1024 / (128 + 2 * 16));
    EXPECT_EQ(setState(mEquipment, volume, {kept}, {std::int32_t{7}})->result, wire::Result::OutOfRange);
    EXPECT_EQ(setState(mEquipment, volume, {std::int32_t{0}}, {std::int32_t{8}}), std::nullopt);
    EXPECT_EQ(readState(mEquipment, volume, {std::int32_t{0}}), wire::Values{std::int32_t{8}});
    mEquipment.state.restore("audio");
    EXPECT_EQ(setState(mEquipment, volume, {kept}, {std::int32_t{7}}), std::nullopt);
}

/** So that whatever clients set fits into the state file: no byte takes more than six there. */
TEST_F(Running, KeepTextsThatAStateFileHolds) {
    const wire::StateKey& info = *wire::findState("factory.machineInfo");
    const wire::Values text{std::string(1024 * 1024, '\x01')};
    EXPECT_EQ(setState(mEquipment, info, {std::int32_t{0}}, text), std::nullopt);
    EXPECT_EQ(setState(mEquipment, info, {std::int32_t{1}}, text)->result, wire::Result::OutOfRange);
    EXPECT_EQ(setState(mEquipment, info, {std::int32_t{1}}, {std::string(1024 * 1024 - 400, '\x01')}), std::nullopt);
    EXPECT_LT(snapshotOf(mEquipment).size(), 16U * 1024 * 1024);
    EXPECT_EQ(setState(mEquipment, info, {std::int32_t{0}}, {std::string("TV")}), std::nullopt);
    EXPECT_EQ(setState(mEquipment, info, {std::int32_t{2}}, text)->result, wire::Result::OutOfRange);
}

TEST_F(Running, StatesThatCannotBeAreNotSet) {
    EXPECT_EQ(set("audio.volume", numbers({0}), numbers({101})), "audio.volume goes from 0 to 100");
    EXPECT_EQ(set("audio.volume", {}, numbers({35})), "audio.volume takes 1 key of integers");
    EXPECT_EQ(set("audio.volume", {std::string("speaker")}, numbers({35})), "audio.volume takes 1 key of integers");
    EXPECT_EQ(set("audio.volume", numbers({0}), {std::string("loud")}), "audio.volume takes integers");
    EXPECT_EQ(set("factory.panelID", {}, numbers({1})), "factory.panelID takes texts");
    EXPECT_EQ(set(kCurrent, numbers({kMain}), numbers({5})), "there is no source 5");
    EXPECT_EQ(set(kCurrent, numbers({kMain}), {}), "sourcemanager.curSource takes one source");
    EXPECT_EQ(set("sourcemanager.sourceList", {}, numbers({1})),
              "sourcemanager.sourceList is derived from other states and cannot be set");
    EXPECT_EQ(published(), Events{});
    EXPECT_EQ(mEquipment.revision.number(), 0U);
}

TEST_F(Running, ChangesAreCountedAndNothingElse) {
    set("audio.volume", numbers({0}), numbers({20}));
    mEquipment.power.enter(PowerState::On);
    mEquipment.cec.plug(4, true);
    mSources.plug(KELU_TV_SRC_ATV, true);
    EXPECT_EQ(mEquipment.revision.number(), 0U);
    const auto counts = [this](auto change) {
        const std::uint64_t before = mEquipment.revision.number();
        change();
        return mEquipment.revision.number() != before;
    };
    EXPECT_TRUE(counts([this] { set("audio.volume", numbers({0}), numbers({35})); }));
    EXPECT_TRUE(counts([this] { mEquipment.state.restore("audio"); }));
    EXPECT_TRUE(counts([this] { mEquipment.power.enter(PowerState::Suspended); }));
    EXPECT_TRUE(counts([this] { mEquipment.power.wake(3); }));
    EXPECT_TRUE(counts([this] { mEquipment.power.wake(4); }));
    EXPECT_TRUE(counts([this] { mEquipment.cec.plug(4, false); }));
    EXPECT_TRUE(counts([this] { mEquipment.cec.select(5); }));
    EXPECT_TRUE(counts([this] { mEquipment.cec.remove(8); }));
    EXPECT_TRUE(counts([this] { mSources.plug(KELU_TV_SRC_HDMI1, false); }));
    EXPECT_TRUE(counts([this] { mSources.setSignal(KELU_TV_SRC_HDMI1, preset("pal")); }));
}

TEST_F(Running, KeepsEverythingInAText) {
    set("audio.volume", numbers({1}), numbers({35}));
    set("audio.outputStatus", {std::string("speaker")}, numbers({0}));
    set("factory.panelID", {}, {std::string("\"\xff\x80")});
    set("factory.barCode", {}, {std::string("Z\xc3\xbc")});
    set(kCurrent, numbers({kMain}), numbers({KELU_TV_SRC_HDMI2}));
    set("sourcemanager.deselected", numbers({KELU_TV_SRC_HDMI2}), numbers({1}));
    mSources.plug(KELU_TV_SRC_HDMI1, false);
    mSources.setSignal(KELU_TV_SRC_HDMI4, preset("1080p24-3d"));
    mEquipment.cec.add(kPlayer);
    mEquipment.cec.remove(8);
    mEquipment.cec.select(11);
    mEquipment.power.wake(7);
    mEquipment.power.enter(PowerState::SuspendedToMemory);
    const std::string text = snapshotOf(mEquipment);

    Equipment other(Configuration::standard(), EepStore());
    restoreSnapshot(other, JsonFile(text, "state.json").root());
    EXPECT_EQ(snapshotOf(other), text);
    EXPECT_EQ(other.state.all(), mEquipment.state.all());
    EXPECT_FALSE(other.sources.isPlugged(KELU_TV_SRC_HDMI1));
    EXPECT_EQ(other.sources.signalAt(KELU_TV_SRC_HDMI4), preset("1080p24-3d"));
    EXPECT_FALSE(other.sources.isShown());
    EXPECT_EQ(other.cec.playing(), 11);
    EXPECT_EQ(other.power.state(), PowerState::SuspendedToMemory);
    EXPECT_EQ(other.power.wakeupMode(), 7);
    EXPECT_TRUE(other.events.empty());
    EXPECT_TRUE(other.state.takeChanges().empty());
}

TEST_F(Running, KeepsNumbersThatJsonLacks) {
    const wire::Values values{0.1,
                              5.0,
                              -0.0,
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::int32_t{5}};
    const std::string json = jsonOf(values);
    EXPECT_EQ(json, R"([0.1,5.0,-0.0,{"real":"inf"},{"real":"-inf"},5])");
    EXPECT_EQ(readValues(JsonFile(json, "x").root()), values);
    const JsonFile nan(jsonOf(wire::Values{std::nan("")}), "x");
    EXPECT_TRUE(std::isnan(std::get<double>(readValues(nan.root())[0])));
}

struct BadState {
    const char* name;
    /** What takes the place of which part of a good text. */
    const char* part;
    const char* replacement;
    const char* complaint;
};

void PrintTo(const BadState& bad, std::ostream* out) { *out << bad.name; }

constexpr char kGoodState[] = R"({"format": "kelutv simulator state 1",
    "settings": [{"state": "audio.volume", "key": [0], "value": [35]}],
    "sources": [{"source": "KELU_TV_SRC_HDMI1", "plugged": true, "signal": {"video.mode3d": [1]}}],
    "mainWindowShown": true,
    "cecDevices": [{"logAddr": 4, "hdmiDevPort": 0, "name": "A", "phyAddr": "1.0.0.0", "listText": "A", "plugged": true}],
    "cecPlaying": 4,
    "power": {"state": 0, "lastPowerOffMode": 1, "wakeupMode": 2}})";

constexpr BadState kBadStates[] = {
    {"OtherFormat", "state 1", "state 2",
     "state.json: this is not the state of a simulator: its format is not 'kelutv simulator state 1'"},
    {"MemberTooMuch", "\"mainWindowShown\": true", "\"mainWindowShown\": true, \"colour\": 1",
     "state.json: /colour: there is no 'colour' here, only format, settings, sources, mainWindowShown, cecDevices, "
     "cecPlaying, power"},
    {"MemberMissing", "\"mainWindowShown\": true,", "", "state.json: 'mainWindowShown' is missing"},
    {"UnknownState", "audio.volume", "audio.volum",
     "state.json: /settings/0/state: there is no state 'audio.volum'; nearest: audio.volume, audio.volumeToReg"},
    {"NoKey", "\"key\": [0], ", "", "state.json: /settings/0: audio.volume takes 1 key of integers"},
    {"WrongKey", "\"key\": [0]", "\"key\": [\"0\"]", "state.json: /settings/0: audio.volume takes 1 key of integers"},
    {"OutOfRange", "[35]", "[101]", "state.json: /settings/0/value: audio.volume goes from 0 to 100"},
    {"WrongType", "[35]", "[\"35\"]", "state.json: /settings/0/value: audio.volume takes integers"},
    {"BadBytes", "[35]", "[{\"hex\": \"3\"}]",
     "state.json: /settings/0/value/0/hex: an even number of hexadecimal digits is needed, not \"3\""},
    {"BadReal", "[35]", "[{\"real\": \"big\"}]",
     "state.json: /settings/0/value/0/real: nan, inf or -inf is needed, not \"big\""},
    {"StateTwice", "[35]}", "[35]}, {\"state\": \"audio.volume\", \"key\": [0], \"value\": [3]}",
     "state.json: /settings/1: audio.volume is given twice with this key"},
    {"UnknownSource", "KELU_TV_SRC_HDMI1", "KELU_TV_SRC_HDMI9",
     "state.json: /sources/0/source: 'KELU_TV_SRC_HDMI9' is not one of atv, dig1, dig2, cvbs1, cvbs2, cvbs3, vga, "
     "ypbpr1, "
     "ypbpr2, hdmi1, hdmi2, hdmi3, hdmi4, media, media1, media2, scart1, scart2, auto; nearest: KELU_TV_SRC_HDMI1, "
     "KELU_TV_SRC_HDMI2, KELU_TV_SRC_HDMI3, KELU_TV_SRC_HDMI4, "
     "KELU_TV_SRC_DIG1"},
    {"SourceTheSetLacks", "KELU_TV_SRC_HDMI1", "KELU_TV_SRC_SCART1",
     "state.json: /sources/0/source: the television has no source \"KELU_TV_SRC_SCART1\""},
    {"UnknownSignal", "video.mode3d", "video.mode4d",
     "state.json: /sources/0/signal/video.mode4d: there is no state 'video.mode4d'; nearest: video.mode3d, "
     "video.mode625"},
    {"NoSignal", "video.mode3d", "audio.volume",
     "state.json: /sources/0/signal/audio.volume: audio.volume does not show a signal"},
    {"PlaysUnplugged", "\"cecPlaying\": 4", "\"cecPlaying\": 5",
     "state.json: /cecPlaying: no CEC device that is plugged in has the logical address 5"},
    {"PowerState", "\"state\": 0", "\"state\": 6",
     "state.json: /power/state: a power state goes from 0 to 5, it cannot be 6"},
};

class BadKeptState : public Running, public ::testing::WithParamInterface<BadState> {};

TEST_P(BadKeptState, IsRefusedAndChangesNothing) {
    std::string text = kGoodState;
    const std::string part = GetParam().part;
    ASSERT_NE(text.find(part), std::string::npos);
    text.replace(text.find(part), part.size(), GetParam().replacement);
    const std::string before = snapshotOf(mEquipment);
    try {
        load(text);
        FAIL() << "it was taken";
    } catch (const ConfigurationError& error) {
        EXPECT_STREQ(error.what(), GetParam().complaint);
    }
    EXPECT_EQ(snapshotOf(mEquipment), before);
}

std::string nameOf(const ::testing::TestParamInfo<BadState>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Each, BadKeptState, ::testing::ValuesIn(kBadStates), nameOf);

TEST_F(Running, TakesAGoodState) {
    load(kGoodState);
    EXPECT_EQ(read("audio.volume", numbers({0})), numbers({35}));
    EXPECT_EQ(mSources.signalAt(KELU_TV_SRC_HDMI1).at(wire::findState("video.mode3d")), numbers({1}));
    EXPECT_EQ(mEquipment.cec.playing(), 4);
    EXPECT_EQ(mEquipment.power.lastPowerOffMode(), 1);
}

} // namespace

} // namespace kelutv::simulator
