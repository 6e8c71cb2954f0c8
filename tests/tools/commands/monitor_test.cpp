#include "tools/ParsedJson.h"
#include "tools/Tool.h"

#include "simulator/Simulator.h"
#include "support/TestFolder.h"

#include <keluem/publisher.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kelutv::test {
namespace {

SimulatorEnvironment& television = SimulatorEnvironment::install();

/** The tool at work: its subscriptions stand. */
std::unique_ptr<ChildProcess> startMonitor(std::vector<std::string> arguments,
                                           std::vector<std::string> environment = {}) {
    arguments.insert(arguments.begin(), "monitor");
    auto monitor = startTool(std::move(arguments), std::move(environment));
    EXPECT_TRUE(monitor->error().waitFor("watching for events")) << monitor->error().text();
    return monitor;
}

/** One for all events, since only those of one publisher keep their order. */
keluem::Publisher& publisher() {
    static auto* const publisher = new keluem::Publisher;
    return *publisher;
}

template <typename... Words> void publish(unsigned int event, Words... words) {
    const std::int32_t payload[] = {words..., 0};
    EXPECT_EQ(publisher().publish(event, payload, sizeof...(words) * sizeof(std::int32_t)), 0);
}

std::vector<std::string> withoutTimes(const std::string& output) {
    std::vector<std::string> lines;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line.substr(line.find(' ') + 1));
    }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(Monitor, tellsOfEventsInTheirOrder) {
    const auto monitor = startMonitor({"--count", "3"});
    publish(0x60001, 0, 35);
    publish(0x6FF07);
    publish(0x60002, 1, -2);
    EXPECT_EQ(monitor->exitCode(), 0);
    EXPECT_EQ(withoutTimes(monitor->output().text()),
              (Lines{"0x60001 KELU_EM_MODE_VOLUME volumeChanged (8 bytes: 00 00 00 00 23 00 00 00): channel=0 "
                     "KELU_TV_AUDIO_CHANNEL_SPEAKER, volume=35",
                     "0x6FF07 KELU_EM_MODE_VOLUME (0 bytes)",
                     "0x60002 KELU_EM_MODE_VOLUME muteChanged (8 bytes: 01 00 00 00 fe ff ff ff): channel=1 "
                     "KELU_TV_AUDIO_CHANNEL_HEADPHONE, mute=-2"}));
}

TEST(Monitor, tellsOfTheTelevisionsOwnEvents) {
    const auto monitor = startMonitor({"--count", "1", "--json"});
    EXPECT_EQ(runTool({"call", "audio.setVolume", "speaker", "77"}).exit, 0);
    EXPECT_EQ(monitor->exitCode(), 0);
    auto event = parsedJson(monitor->output().text());
    EXPECT_GT(event.at("time").asReal(), 1.0e9);
    event["time"] = 0;
    EXPECT_EQ(event, parsedJson(R"({"time": 0, "event": 393217, "name": "volumeChanged", "length": 8,
        "module": "KELU_EM_MODE_VOLUME", "payload": "000000004d000000",
        "fields": [{"name": "channel", "value": 0, "enumerator": "KELU_TV_AUDIO_CHANNEL_SPEAKER"},
                   {"name": "volume", "value": 77}]})"));
}

TEST(Monitor, givesFieldsWithWhatStandsBehindThemOrWords) {
    const auto monitor = startMonitor({"--count", "2", "--json"});
    publish(0x60001, 1, 35, 7);
    publish(0x6FF01, 8, -9);
    EXPECT_EQ(monitor->exitCode(), 0);
    std::istringstream lines(monitor->output().text());
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(parsedJson(line).find("words"), nullptr);
    EXPECT_EQ(parsedJson(line).at("fields"),
              parsedJson(R"([{"name": "channel", "value": 1, "enumerator": "KELU_TV_AUDIO_CHANNEL_HEADPHONE"},
                  {"name": "volume", "value": 35}, {"value": 7}])"));
    std::getline(lines, line);
    EXPECT_EQ(parsedJson(line).at("words"), parsedJson("[8, -9]"));
}

TEST(Monitor, showsPayloadsThatAreNoWords) {
    const auto monitor = startMonitor({"--count", "1", "--json"});
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(0x8FF09, "abc", 3), 0);
    EXPECT_EQ(monitor->exitCode(), 0);
    const auto event = parsedJson(monitor->output().text());
    EXPECT_EQ(event.at("payload"), "616263");
    EXPECT_TRUE(event.at("words").entries().empty());
    EXPECT_TRUE(event.at("name").isNull());
    EXPECT_EQ(event.find("fields"), nullptr);
}

TEST(Monitor, showsOnlyWhatIsWanted) {
    const auto monitor = startMonitor({"--event", "MuteChanged", "-e", "0x8FF05", "--module", "cec", "--count", "3"});
    publish(0x60001, 0, 1);
    publish(0x60002, 0, 1);
    publish(0x8FF04);
    publish(0x8FF05);
    publish(0x1A0001);
    EXPECT_EQ(monitor->exitCode(), 0);
    EXPECT_EQ(withoutTimes(monitor->output().text()),
              (Lines{"0x60002 KELU_EM_MODE_VOLUME muteChanged (8 bytes: 00 00 00 00 01 00 00 00): channel=0 "
                     "KELU_TV_AUDIO_CHANNEL_SPEAKER, mute=1",
                     "0x8FF05 KELU_EM_MODE_COMMON (0 bytes)", "0x1A0001 KELU_EM_MODE_CEC cecDeviceChanged (0 bytes)"}));
}

TEST(Monitor, listensToModulesBeyondTheLibrarys) {
    for (const std::vector<std::string>& options : {std::vector<std::string>{"--module", "ttx"},
                                                    {"--module", "0x120000"},
                                                    {"--event", "0x120001"},
                                                    {"--event", "vbiBlock"},
                                                    {"--all"}}) {
        auto arguments = options;
        arguments.insert(arguments.end(), {"--count", "1"});
        const auto monitor = startMonitor(arguments);
        publish(0x120001, 4);
        EXPECT_EQ(monitor->exitCode(), 0);
        EXPECT_EQ(withoutTimes(monitor->output().text()),
                  (Lines{"0x120001 KELU_EM_MODE_TTX vbiBlock (4 bytes: 04 00 00 00): length=4, data=<>"}));
    }
}

/** The events of another television, in a file for as long as it lives. */
class EventFile {
public:
    explicit EventFile(const char* text) { std::ofstream(mPath) << text; }
    ~EventFile() { std::filesystem::remove(mPath); }
    EventFile(const EventFile&) = delete;
    EventFile& operator=(const EventFile&) = delete;

    const std::string& path() const { return mPath; }

private:
    std::string mPath = ::testing::TempDir() + "monitor_test.events.md";
};

constexpr char kOtherTelevision[] = R"(# Another television

## Events

| identifier | event | payload | when |
|---|---|---|---|
| KELU_EM_MODE_VOLUME+7 | loudnessChanged | level:int16, mode:LOUD_E, name:text | Another loudness. |

## Enumerations

| enumeration | enumerator | value | meaning |
|---|---|---|---|
| LOUD_E | LOUD_NIGHT | 2 | For the night. |
)";

void publishLoudness() {
    constexpr char kPayload[] = "\xff\xff\x02\0\0\0soft";
    EXPECT_EQ(publisher().publish(0x60007, kPayload, sizeof(kPayload)), 0);
}

constexpr char kLoudness[] =
    "0x60007 KELU_EM_MODE_VOLUME loudnessChanged (11 bytes: ff ff 02 00 00 00 73 6f 66 74 00): "
    "level=-1, mode=2 LOUD_NIGHT, name=\"soft\"";

TEST(Monitor, takesTheEventsOfAnotherTelevision) {
    const EventFile file(kOtherTelevision);
    const auto monitor = startMonitor({"--events", file.path(), "--event", "loudnesschanged", "--count", "1"});
    publish(0x60001, 0, 35);
    publishLoudness();
    EXPECT_EQ(monitor->exitCode(), 0);
    EXPECT_EQ(withoutTimes(monitor->output().text()), Lines{kLoudness});
}

TEST(Monitor, takesTheEventsThatTheEnvironmentNames) {
    const EventFile file(kOtherTelevision);
    const auto monitor = startMonitor({"--count", "2", "--json"}, {"KELUTV_EVENTS=" + file.path()});
    publishLoudness();
    publish(0x60001, 0, 35);
    EXPECT_EQ(monitor->exitCode(), 0);
    std::istringstream lines(monitor->output().text());
    std::string line;
    std::getline(lines, line);
    const auto loudness = parsedJson(line);
    EXPECT_EQ(loudness.at("name"), "loudnessChanged");
    EXPECT_EQ(loudness.at("fields"), parsedJson(R"([{"name": "level", "value": -1},
        {"name": "mode", "value": 2, "enumerator": "LOUD_NIGHT"}, {"name": "name", "value": "soft"}])"));
    std::getline(lines, line);
    EXPECT_TRUE(parsedJson(line).at("name").isNull());
}

TEST(Monitor, refusesFilesThatDescribeNoEvents) {
    const EventFile file(
        "## Events\n\n| identifier | event | payload | when |\n|---|---|---|---|\n| 7 | x | - | y |\n");
    const std::string complaint =
        "kelutv: " + file.path() + ":5: the upper half of identifier 7 is not a module of KELU_EM_MODE_E\n";
    for (const ToolRun& run :
         {runTool({"monitor", "--events", file.path()}), runTool({"monitor"}, {"KELUTV_EVENTS=" + file.path()})}) {
        EXPECT_EQ(run.exit, 2);
        EXPECT_NE(run.error.find(complaint), std::string::npos) << run.error;
    }
    const std::string missing = file.path() + ".none";
    const ToolRun run = runTool({"monitor", "--events", missing});
    EXPECT_EQ(run.exit, 2);
    EXPECT_NE(run.error.find("cannot read " + missing), std::string::npos) << run.error;
}

TEST(Monitor, endsBySignal) {
    for (const int signal : {SIGINT, SIGTERM}) {
        const auto monitor = startMonitor({});
        publish(0x60001, 0, 1);
        ASSERT_TRUE(monitor->output().waitFor("0x60001"));
        monitor->kill(signal);
        EXPECT_EQ(monitor->exitCode(), 0);
    }
}

TEST(Monitor, endsWhenTheTimeIsOver) {
    EXPECT_EQ(startMonitor({"--timeout", "1"})->exitCode(), 0);
    const ToolRun run = runTool({"monitor", "--timeout", "0.05", "--count", "2"});
    EXPECT_EQ(run.exit, 5);
    EXPECT_NE(run.error.find("kelutv: the time was over after 0 of 2 events\n"), std::string::npos);
}

TEST(Monitor, refusesBadInput) {
    struct Case {
        std::vector<std::string> arguments;
        const char* error;
    };
    const Case cases[] = {
        {{"monitor", "--event", "volumeChange"}, "no event is called volumeChange; nearest: volumeChanged"},
        {{"monitor", "--event", "7"}, "event 7 has no module in its upper half, as 0x60001 has"},
        {{"monitor", "--module", "0x60001"},
         "module 0x60001 is none; a module is a multiple of 0x10000 from 0x10000 to 0x200000"},
        {{"monitor", "--module", "nowhere"}, "kelutv: module: 'nowhere' is not one of "},
    };
    for (const Case& test : cases) {
        const ToolRun run = runTool(test.arguments);
        EXPECT_EQ(run.exit, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_NE(run.error.find(test.error), std::string::npos) << run.error;
    }
}

TEST(Monitor, tellsOfTheMissingService) {
    const TestFolder folder;
    const ToolRun run = runTool({"monitor"}, {"KQDROID_RUNTIME_DIR=" + folder.pathOf("runtime")});
    EXPECT_EQ(run.exit, 3);
}

TEST(MonitorLast, outlivesTheService) {
    const auto text = startMonitor({"--count", "2"});
    const auto json = startMonitor({"--count", "2", "--json"});
    const auto ending = startMonitor({"--exit-on-loss"});
    publish(0x60001, 0, 1);
    ASSERT_TRUE(text->output().waitFor("0x60001"));
    ASSERT_TRUE(json->output().waitFor("393217"));
    television.simulator().process().kill(SIGTERM);
    ASSERT_TRUE(text->error().waitFor("kelutv: the service is gone; watching goes on when it is back\n"));
    ASSERT_TRUE(json->output().waitFor("\"service\":\"gone\""));
    EXPECT_EQ(ending->exitCode(), 3);
    EXPECT_EQ(ending->error().text(), "kelutv: watching for events\nkelutv: the service is gone\n");

    const Simulator simulator;
    ASSERT_TRUE(text->error().waitFor("kelutv: the service is back\n"));
    ASSERT_TRUE(json->output().waitFor("\"service\":\"back\""));
    // The television that ended may have been found once more meanwhile.
    for (const auto& monitor : {text.get(), json.get()}) {
        EXPECT_TRUE(eventually([monitor] {
            publish(0x60002, 0, 1);
            return monitor->wait(std::chrono::milliseconds(0)).has_value();
        }));
        EXPECT_EQ(monitor->exitCode(), 0);
    }
    const Lines lines = withoutTimes(text->output().text());
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1].substr(0, 8), "0x60002 ");
}

/** The television of the other tests is gone already. */
TEST(MonitorLast, endsInTimeWithoutTheService) {
    Simulator simulator;
    const auto monitor = startMonitor({"--timeout", "1.5"});
    const auto counting = startMonitor({"--count", "1", "--timeout", "1.5"});
    simulator.process().kill(SIGTERM);
    ASSERT_TRUE(monitor->error().waitFor("kelutv: the service is gone"));
    EXPECT_EQ(monitor->exitCode(), 0);
    EXPECT_EQ(counting->exitCode(), 5);
}

} // namespace
} // namespace kelutv::test
