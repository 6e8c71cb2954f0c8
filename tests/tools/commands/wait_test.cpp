#include "tools/ParsedJson.h"
#include "tools/Tool.h"

#include "simulator/Simulator.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <csignal>

namespace kelutv::test {
namespace {

SimulatorEnvironment& television = SimulatorEnvironment::install();

/** `kelutv wait` once its subscriptions stand. */
std::unique_ptr<ChildProcess> startWaiting(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "wait");
    auto waiting = startTool(std::move(arguments));
    EXPECT_TRUE(waiting->error().waitFor("waiting for ")) << waiting->error().text();
    return waiting;
}

void set(const std::string& name, const std::string& value) { EXPECT_EQ(runTool({"set", name, value}).exit, 0); }

std::string errorOf(const std::vector<std::string>& arguments) {
    std::vector<std::string> words{"wait"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const ToolRun run = runTool(words);
    EXPECT_EQ(run.exit, 2) << run.output;
    EXPECT_EQ(run.output, "");
    return run.error;
}

TEST(Wait, endsAtOnceWhenTheSettingIsSo) {
    set("volume", "20");
    EXPECT_EQ(runTool({"wait", "volume >= 20", "--timeout", "100"}).exit, 0);
    EXPECT_EQ(runTool({"wait", "mute!=on", "--timeout", "100"}).exit, 0);
    EXPECT_EQ(runTool({"wait", "volume<20", "--timeout", "0.2"}).exit, 5);
}

TEST(Wait, printsTheSettingWhenItHasBecomeSo) {
    set("volume", "5");
    const auto waiting = startWaiting({"volume>=20"});
    set("volume", "19");
    set("volume", "23");
    EXPECT_EQ(waiting->exitCode(), 0);
    EXPECT_EQ(waiting->output().text(), "23\n");
    const auto document = runTool({"--json", "wait", "volume>=20"});
    EXPECT_EQ(document.output, "{\"thing\":\"volume\",\"value\":23}\n");
}

TEST(Wait, printsTheEventThatHasTheseFields) {
    set("volume", "5");
    const auto waiting = startWaiting({"volumeChanged", "channel=speaker", "volume>=20"});
    set("volume", "6");
    set("volume", "31");
    EXPECT_EQ(waiting->exitCode(), 0);
    EXPECT_NE(waiting->output().text().find(" volumeChanged (8 bytes: 00 00 00 00 1f 00 00 00): "), std::string::npos)
        << waiting->output().text();
    EXPECT_EQ(waiting->output().text().find('\n'), waiting->output().text().size() - 1);
    EXPECT_EQ(waiting->error().text(), "kelutv: waiting for volumeChanged channel=speaker volume>=20\n");
}

TEST(Wait, takesEventsByNumberAndPrintsADocument) {
    const auto waiting = startWaiting({"0x60002", "--json"});
    set("mute", "toggle");
    EXPECT_EQ(waiting->exitCode(), 0);
    EXPECT_EQ(parsedJson(waiting->output().text()).at("name"), "muteChanged");
}

TEST(Wait, refusesWhatCannotBe) {
    const std::string hint = "Try 'kelutv help wait'.\n";
    EXPECT_EQ(errorOf({"volume=x"}), "kelutv: volume is compared with a whole number, not 'x'\n" + hint);
    EXPECT_EQ(errorOf({"volume"}), "kelutv: say what volume is to be, as in 'volume=VALUE'\n" + hint);
    EXPECT_EQ(errorOf({"volumeChange"})
                  .find("kelutv: there is no event or setting 'volumeChange' to wait for; nearest: "
                        "volumeChanged, "),
              0U);
    EXPECT_EQ(errorOf({"servce"}),
              "kelutv: there is no event or setting 'servce' to wait for; nearest: service\n" + hint);
    EXPECT_EQ(errorOf({""}), "kelutv: there is no event or setting '' to wait for\n" + hint);
    EXPECT_EQ(errorOf({"source=x"}).find("kelutv: source: 'x' is not one of atv, "), 0U);
    EXPECT_EQ(errorOf({"volumeChanged", "channel=x"}).find("kelutv: channel: 'x' is not one of speaker, "), 0U);
    EXPECT_EQ(errorOf({"volumeChanged", "volume"}),
              "kelutv: 'volume' does not say what a field is to be, as volume=35 does\n" + hint);
    EXPECT_EQ(errorOf({"0x6FF01", "volume=3"}), "kelutv: the fields of event 0x6FF01 are not known\n" + hint);
    EXPECT_EQ(errorOf({"service", "volume=3"}), "kelutv: unexpected argument 'volume=3'\n" + hint);
}

TEST(Wait, tellsOfTheMissingService) {
    const TestFolder folder;
    const std::vector<std::string> elsewhere{"KQDROID_RUNTIME_DIR=" + folder.pathOf("runtime")};
    EXPECT_EQ(runTool({"wait", "volume=3"}, elsewhere).exit, 3);
    const ToolRun run = runTool({"wait", "service", "--timeout", "0.2"}, elsewhere);
    EXPECT_EQ(run.exit, 5);
    EXPECT_EQ(run.output, "");
}

TEST(WaitLast, isOverWithTheServiceUnlessThatIsWaitedFor) {
    const auto event = startWaiting({"volumeChanged"});
    const auto setting = startWaiting({"volume>100"});
    television.simulator().process().kill(SIGTERM);
    EXPECT_EQ(event->exitCode(), 3);
    EXPECT_EQ(setting->exitCode(), 3);

    const auto service = startTool({"wait", "service"});
    EXPECT_EQ(service->wait(std::chrono::milliseconds(200)), std::nullopt);
    const Simulator simulator;
    EXPECT_EQ(service->exitCode(), 0);
    EXPECT_EQ(runTool({"wait", "service", "--json", "--timeout", "10"}).output, "{\"service\":\"there\"}\n");
}

} // namespace
} // namespace kelutv::test
