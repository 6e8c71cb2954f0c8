#include "tools/snapshot/Snapshots.h"

#include "support/Deadline.h"

#include <algorithm>
#include <csignal>
#include <set>
#include <sstream>

namespace kelutv::test {
namespace {

using tool::Json;

Json otherThan(const Json& value) {
    if (value.isInteger()) {
        return value.asInteger() ^ 1;
    }
    return value.isNumber() ? Json(value.asReal() + 0.5) : value.isText() ? Json(value.asText() + "x") : value;
}

/** The states that a set of the catalogue can put back, without their keys. */
std::set<std::string> settableStates() {
    std::set<std::string> states;
    for (const wire::Function& function : wire::allFunctions()) {
        if (function.effect.kind == wire::EffectKind::Set && function.effect.back != nullptr) {
            const wire::Function& reader = *wire::functionsNamed(function.effect.back).front();
            const wire::StateKey* const key = stateReadBy(reader);
            states.insert(key != nullptr ? key->name : reader.shortName);
        }
    }
    return states;
}

/** Every state that the catalogue can put back can be put back with any value that its set takes. */
TEST_F(Snapshots, areRestoredToAnyOtherValue) {
    const std::set<std::string> settable = settableStates();
    Json other = fresh();
    other["states"] = Json::array();
    std::size_t expected = 0;
    for (Json entry : fresh().at("states").entries()) {
        Json values = Json::array();
        for (const Json& value : entry.at("values").entries()) {
            values.add(otherThan(value));
        }
        entry["values"] = values;
        other["states"].add(entry);
        expected += settable.count(plainName(entry));
    }
    write("other.json", other.dump());
    std::istringstream lines(restore("other.json", {"--dry-run", "--allow-dangerous", "*"}).output);
    std::vector<std::string> impossible;
    std::size_t states = 0;
    for (std::string line; std::getline(lines, line); ++states) {
        if (line.find(": kelutv call ") == std::string::npos) {
            impossible.push_back(line.substr(0, line.find(':')));
        }
    }
    EXPECT_EQ(states, expected);
    // The number of its bands goes from 1 to 10, and is 11 then.
    EXPECT_EQ(impossible, std::vector<std::string>{"audio.peqAttr"});
}

/** Lines that change something of every kind: numbers, lists, records, items, a source and what depends on it. */
const std::vector<std::string> kChanges{
    "set audio.volume[speaker] = 35", "set audio.bootVolume[speaker] = 7",   "set factory.hotelBootChannel = 1 -7",
    "set factory.overscan = 1 2 3 4", "set audio.preScale[speaker] = 3 500", "set systemsetting.menuLanguage = 2",
    "set factory.avcGain = -2 -347",  "set picture.brightness = 71",         "set config.arcEnable = 1",
};

TEST_F(Snapshots, areRestoredInFull) {
    for (const std::string& line : kChanges) {
        sim(line);
    }
    run({"call", "sourcemanager.selectSource", "hdmi1", "main"});
    run({"call", "picture.setPictureMode", "KELU_TV_PIC_MODE_MOVIE"});
    take("golden.json");
    turnOff();
    turnOn();
    const ToolRun restored = restore("golden.json");
    EXPECT_EQ(restored.exit, 0) << restored.output << restored.error;
    EXPECT_NE(restored.output.find("audio.volume[speaker]: 20 -> 35\n"), std::string::npos) << restored.output;
    EXPECT_EQ(restore("golden.json").output, "");
}

/** What stands before the first colon of each line. */
std::vector<std::string> statesIn(const std::string& output) {
    std::istringstream lines(output);
    std::vector<std::string> states;
    for (std::string line; std::getline(lines, line);) {
        states.push_back(line.substr(0, line.find(": ")));
    }
    return states;
}

TEST_F(Snapshots, areRestoredSourceFirstThenModesThenValues) {
    writeSome("golden.json", {{"audio.soundMode", Json::array({1})},
                              {"picture.brightness", Json::array({71})},
                              {"picture.getPictureMode", Json::array({3})},
                              {"sourcemanager.curSource[main]", Json::array({9})},
                              {"video.mode3d", Json::array({2})}});
    const ToolRun restored = restore("golden.json");
    EXPECT_EQ(restored.exit, 0) << restored.output << restored.error;
    EXPECT_EQ(statesIn(restored.output),
              (std::vector<std::string>{"sourcemanager.curSource[main]", "picture.getPictureMode", "audio.soundMode",
                                        "video.mode3d", "picture.brightness"}));
    EXPECT_EQ(restore("golden.json").output, "");
}

TEST_F(Snapshots, areRehearsedWithTheCallsThatSet) {
    writeSome("golden.json", {{"audio.volume[speaker]", Json::array({35})}});
    EXPECT_EQ(restore("golden.json", {"--dry-run"}).output,
              "audio.volume[speaker]: 20 -> 35: kelutv call audio.setVolume KELU_TV_AUDIO_CHANNEL_SPEAKER 35\n");
    EXPECT_EQ(runTool({"get", "volume"}).output, "20\n");
    run({"call", "audio.setVolume", "KELU_TV_AUDIO_CHANNEL_SPEAKER", "35"});
    EXPECT_EQ(restore("golden.json", {"--dry-run"}).output, "");
}

TEST_F(Snapshots, leaveDangerousAndOtherStatesAloneUnlessNamed) {
    writeSome("golden.json", {{"audio.soundMode", Json::array({1})},
                              {"audio.volume[speaker]", Json::array({35})},
                              {"factory.country", Json::array({3})},
                              {"factory.machineInfo[model]", Json::array({"it's golden"})},
                              {"factory.panelID", Json::array({"only read"})}});
    EXPECT_EQ(restore("golden.json", {"--only", "audio.volume[speaker]"}).output, "audio.volume[speaker]: 20 -> 35\n");
    const ToolRun harmless = restore("golden.json");
    EXPECT_EQ(harmless.output, "audio.soundMode: 0 (standard) -> 1 (movie)\n");
    EXPECT_EQ(harmless.error, "kelutv: 1 state set, 0 did not take, 1 as wanted, 2 dangerous left alone\n");
    const ToolRun rehearsed = restore("golden.json", {"--dry-run"});
    EXPECT_EQ(rehearsed.error.substr(0, rehearsed.error.find('\n')),
              "kelutv: dangerous, left alone unless --allow-dangerous names them: factory.country, "
              "factory.machineInfo");
    const ToolRun alone = restore("golden.json", {"--only", "factory.country"});
    EXPECT_EQ(alone.error, "kelutv: dangerous, left alone unless --allow-dangerous names them: factory.country\n"
                           "kelutv: 0 states set, 0 did not take, 0 as wanted, 1 dangerous left alone\n");
    const ToolRun named = restore("golden.json", {"--allow-dangerous", "factory.country"});
    EXPECT_EQ(statesIn(named.output), std::vector<std::string>{"factory.country"}) << named.output;
    const ToolRun all = restore("golden.json", {"--allow-dangerous", "*"});
    EXPECT_EQ(statesIn(all.output), std::vector<std::string>{"factory.machineInfo[model]"}) << all.output;
    EXPECT_EQ(runTool({"call", "factory.getMachineInfo", "KELU_TV_MACHINE_INFO_MODEL"}).output,
              "result: 0\ninfo: \"it's golden\"\n");
}

TEST_F(Snapshots, sayWhatDidNotTake) {
    writeSome("golden.json", {{"audio.soundMode", Json::array({1})},
                              {"audio.hangMode", Json::array({"no number"})},
                              {"audio.volume[speaker]", Json::array({35})}});
    sim("fault CMD_AUDIO_SETSOUNDMODE error -5");
    const ToolRun refused = restore("golden.json");
    EXPECT_EQ(refused.exit, 1);
    const std::string expected = "audio.volume[speaker]: 20 -> 35\n"
                                 "audio.soundMode: 0 (standard), not 1 (movie): refused: the service answered -5\n"
                                 "audio.hangMode: 0 (desktop), not \"no number\": cannot be put back: ";
    EXPECT_EQ(refused.output.substr(0, expected.size()), expected);
    sim("set audio.volume[speaker] = 20");
    sim("fault CMD_AUDIO_SETVOLUME die before");
    const ToolRun brokenOff = restore("golden.json");
    EXPECT_EQ(brokenOff.exit, 3);
    EXPECT_NE(brokenOff.output.find("audio.soundMode: 0 (standard), not 1 (movie): refused: the service answered -5\n"),
              std::string::npos)
        << brokenOff.output;
}

TEST_F(Snapshots, areRestoredInFullWhenNothingCanBeWritten) {
    writeSome("golden.json", {{"audio.soundMode", Json::array({1})},
                              {"audio.volume[speaker]", Json::array({35})},
                              {"picture.brightness", Json::array({71})}});
    const ToolRun run = runToolOnFullDevice({"snapshot", "restore", file("golden.json")});
    EXPECT_EQ(run.exit, 1);
    EXPECT_NE(run.error.find("No space left on device"), std::string::npos) << run.error;
    EXPECT_EQ(restore("golden.json", {"--dry-run"}).output, "");
}

/** Each time it hangs in another call when it is killed, and what was done before stays. */
TEST_F(Snapshots, areRestoredByTheNextRunWhenOneIsKilled) {
    const std::vector<std::pair<std::string, Json>> golden{{"systemsetting.menuLanguage", Json::array({2})},
                                                           {"audio.bootVolume[speaker]", Json::array({7})},
                                                           {"audio.volume[speaker]", Json::array({35})},
                                                           {"picture.brightness", Json::array({71})}};
    writeSome("golden.json", golden);
    auto before = golden;
    for (auto& [state, values] : before) {
        values = entryOf(fresh(), "states", state)->at("values");
    }
    writeSome("before.json", before);
    const char* const sets[] = {"CMDID_SYSTEM_SET_MENU_LANGUAGE", "CMDID_AUDIO_SET_BOOT_VOLUME", "CMD_AUDIO_SETVOLUME",
                                "CMD_PICTURE_SETBRIGHTNESS"};
    for (std::size_t moment = 0; moment < golden.size(); ++moment) {
        sim(std::string("fault ") + sets[moment] + " delay 3600s once");
        const auto tool = startTool({"snapshot", "restore", file("golden.json")});
        ASSERT_TRUE(eventually([] { return runTool({"sim", "faults"}).output.empty(); })) << "the call was not made";
        EXPECT_TRUE(eventually([&] { return statesIn(tool->output().text()).size() == moment; }));
        tool->kill(SIGKILL);
        ASSERT_TRUE(tool->wait());
        const ToolRun again = restore("golden.json");
        EXPECT_EQ(again.exit, 0) << again.output;
        // The television carried out the call that was not answered.
        EXPECT_EQ(statesIn(again.output).size(), golden.size() - moment - 1) << again.output;
        EXPECT_EQ(restore("golden.json", {"--dry-run"}).output, "");
        ASSERT_EQ(restore("before.json").exit, 0);
    }
}

/** What a person at the television does with plugs and the power, in lines that do it again. */
std::string roomOf() {
    std::string lines;
    for (const char* const what : {"source", "cec", "power"}) {
        lines += runTool({"sim", "show", what}).output;
    }
    return lines;
}

class Scenarios : public Snapshots, public ::testing::WithParamInterface<const char*> {};

TEST_P(Scenarios, isPutBackInFullOnAFreshTelevision) {
    turnOff();
    turnOn({"--scenario", GetParam(), "--speed", "1000"});
    if (std::string(GetParam()) == "factory-line") {
        // The station; the first write fails.
        ASSERT_TRUE(eventually([] {
            return runTool({"sim", "faults"}).output.find("SETMACADDRESS") != std::string::npos;
        }));
        const std::vector<std::string> write{"call", "factory.setMacAddress", "2,0,0,0x12,0x34,0x56"};
        ASSERT_EQ(runTool(write).exit, 4);
        run(write);
        run({"call", "factory.restoreFactory"});
    }
    ASSERT_TRUE(television().output().waitFor("the scenario has ended\n")) << television().output().text();
    take("golden.json");
    write("room", roomOf());
    turnOff();
    turnOn();
    run({"sim", "--file", file("room")});
    const ToolRun restored = restore("golden.json");
    EXPECT_EQ(restored.exit, 0) << restored.output;
    take("after.json");
    EXPECT_EQ(diff("golden.json", "after.json").output, "");
}

std::string nameOf(const ::testing::TestParamInfo<const char*>& scenario) {
    std::string name = scenario.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

std::vector<const char*> scenarios() {
#ifdef __SANITIZE_ADDRESS__
    // Each starts the tool dozens of times, slowly here, and would say the same of memory.
    return {"factory-line"};
#else
    return {"first-start", "signal-loss", "hdmi-hotplug-cec", "factory-line", "hotel"};
#endif
}

INSTANTIATE_TEST_SUITE_P(All, Scenarios, ::testing::ValuesIn(scenarios()), nameOf);

} // namespace
} // namespace kelutv::test
