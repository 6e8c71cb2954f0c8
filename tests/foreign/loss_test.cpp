#include "foreign/ForeignService.h"

#include <gtest/gtest.h>

#include <csignal>

namespace kelutv::test {
namespace {

constexpr char kGone[] = "the request did not get through: the service is gone or did not take it (status -32, "
                         "DEAD_OBJECT)\n";

/** What the platform says of a name whose process has ended. */
std::string refusedAt(const ForeignService& service) {
    return "  no TVBaseService: " + service.folder() + "/TVBaseService: Connection refused\n";
}

/** The tool once it has printed this message. */
std::unique_ptr<ChildProcess> startUntil(const std::string& message, const std::vector<std::string>& arguments,
                                         const ForeignService& service) {
    auto tool = startTool(arguments, service.environment());
    EXPECT_TRUE(tool->error().waitFor(message)) << tool->error().text();
    return tool;
}

TEST(ForeignWait, endsWithTheServiceThatComes) {
    ForeignService service;
    EXPECT_EQ(service.run({"wait", "service", "--timeout", "10"}).error, "kelutv: the service is there\n");
    service.end();
    EXPECT_EQ(service.run({"wait", "service", "--timeout", "0.2"}).exit, 5);
    const auto waiting = startTool({"wait", "service"}, service.environment());
    service.startAgain();
    EXPECT_EQ(waiting->exitCode(), 0);
}

TEST(ForeignWait, endsWithWhatIsSet) {
    const ForeignService service;
    const auto event = startUntil("waiting for ", {"wait", "volumeChanged", "channel=speaker", "volume>=40"}, service);
    const auto setting = startUntil("waiting for ", {"wait", "volume>=40"}, service);
    service.output({"set", "volume", "39"});
    service.output({"set", "volume", "41"});
    EXPECT_EQ(event->exitCode(), 0);
    EXPECT_NE(event->output().text().find(" volumeChanged (8 bytes: 00 00 00 00 29 00 00 00): "), std::string::npos)
        << event->output().text();
    EXPECT_EQ(setting->exitCode(), 0);
    EXPECT_EQ(setting->output().text(), "41\n");
}

TEST(ForeignWait, endsWithTheServiceThatGoes) {
    ForeignService service;
    const auto event = startUntil("waiting for ", {"wait", "volumeChanged"}, service);
    const auto setting = startUntil("waiting for ", {"wait", "volume>=40"}, service);
    service.end();
    EXPECT_EQ(event->exitCode(), 3);
    EXPECT_EQ(setting->exitCode(), 3);
}

TEST(ForeignMonitor, goesOnWhenTheServiceIsBack) {
    ForeignService service;
    const auto monitor = startUntil("watching for events\n", {"monitor", "--count", "2"}, service);
    service.output({"set", "volume", "34"});
    ASSERT_TRUE(monitor->output().waitFor("volume=34\n"));
    service.end();
    ASSERT_TRUE(monitor->error().waitFor("kelutv: the service is gone; watching goes on when it is back\n"));
    service.startAgain();
    ASSERT_TRUE(monitor->error().waitFor("kelutv: the service is back\n"));
    service.output({"set", "volume", "35"});
    EXPECT_EQ(monitor->exitCode(), 0);
    EXPECT_NE(monitor->output().text().find("volume=35\n"), std::string::npos) << monitor->output().text();
}

TEST(ForeignTimeLimit, endsWhatIsNotAnswered) {
    ForeignService service;
    service.process().kill(SIGSTOP);
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"get", "volume"}, {"status"}, {"wait", "volume>=0"}, {"monitor", "--count", "1"}}) {
        std::vector<std::string> limited{"--timeout", "0.2"};
        limited.insert(limited.end(), words.begin(), words.end());
        const ToolRun run = service.run(limited);
        EXPECT_EQ(run.exit, 5) << words.front();
        EXPECT_EQ(run.output, "") << words.front();
        EXPECT_EQ(run.error.find("kelutv: the time was over after 0"), 0U) << words.front() << ": " << run.error;
    }
    service.process().kill(SIGCONT);
    EXPECT_EQ(service.run({"--timeout", "10", "get", "volume"}).output, "33\n");
}

TEST(ForeignService, isLookedForAgainWhenItHasDied) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"call", "audio.getVolume", "speaker"}, {"get", "volume"}}) {
        const ForeignService service({"--dies-at", "0x2009"});
        const ToolRun run = service.run(words);
        EXPECT_EQ(run.exit, 3);
        EXPECT_EQ(run.error, "kelutv: " + (kGone + refusedAt(service))) << words.front();
    }
}

TEST(ForeignDoctor, examinesAnotherPlatform) {
    const ForeignService service;
    const ToolRun run = service.run({"doctor", "--event", "10", "--change"});
    EXPECT_EQ(run.exit, 0) << run.error;
    for (const char* const line :
         {"libforeign_droid.so", "\nok    platform.seam: all ", "\nok    service.found: found at try 1\n",
          "\nok    service.transport: not through a binder driver of the kernel\n",
          "\nok    service.wrongToken: refused with -101, wrong interface token\n",
          "\nok    events.received: 0x60001 volumeChanged of KELU_EM_MODE_VOLUME\n", "\nok    latency: p50 ",
          " 0 failures\n"}) {
        EXPECT_NE(run.output.find(line), std::string::npos) << line << run.output;
    }
    EXPECT_EQ(run.output.find("/../"), std::string::npos) << run.output;
    EXPECT_EQ(service.output({"get", "volume"}), "33\n");
}

TEST(ForeignDoctor, namesWhatEndsTheServiceAndGoesNoFurther) {
    const ForeignService service({"--dies-at", "0x200B"});
    const ToolRun run = service.run({"doctor", "--event", "0"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_NE(run.output.find("\nFAIL  read.audio.getMute: "), std::string::npos) << run.output;
    EXPECT_NE(run.output.find(" left out\n"), std::string::npos) << run.output;
}

TEST(ForeignDoctor, givesUpAServiceThatIsStopped) {
    ForeignService service;
    service.process().kill(SIGSTOP);
    const ToolRun run = service.run({"doctor", "--event", "0", "--limit", "0.1"});
    service.process().kill(SIGCONT);
    EXPECT_EQ(run.exit, 5);
    EXPECT_NE(
        run.output.find("\nok    service.found: found at try 1\nFAIL  service.transport: no answer within 0.1 s\n"),
        std::string::npos)
        << run.output;
}

TEST(ForeignDoctor, noticesTheEndOfTheService) {
    ForeignService service;
    const auto doctor = startUntil("end the service now\n", {"doctor", "--event", "0", "--death", "10"}, service);
    service.end();
    EXPECT_EQ(doctor->exitCode(), 0);
    EXPECT_NE(doctor->output().text().find("ok    death: noticed\n"), std::string::npos) << doctor->output().text();
}

} // namespace
} // namespace kelutv::test
