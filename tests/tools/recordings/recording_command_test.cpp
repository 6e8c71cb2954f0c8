#include "tools/ParsedJson.h"
#include "tools/recordings/Recorded.h"
#include "tools/recordings/RecordingText.h"

#include "recording/Reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace kelutv::test {
namespace {

using Words = std::vector<std::string>;

/** A call of two processes by turns, each a second behind the one before. */
std::string callLine(int sequence, const std::string& words, const std::string& reply, int microseconds = 100) {
    const int process = 100 + sequence % 2;
    return lineOf({sequence, words, reply, microseconds, process, process});
}

std::string setLine(int sequence, std::uint32_t volume, const std::string& reply = "00000000", int microseconds = 100) {
    return callLine(sequence, setVolumeWords(volume), reply, microseconds);
}

std::string getLine(int sequence, std::uint32_t volume) {
    return callLine(sequence, getVolumeWords(), wordDigits(0) + wordDigits(volume));
}

/** Of two sets and a get, then an event and the end of the service. */
std::string sample() {
    return headerLine() + setLine(1, 35, "00000000", 300) + getLine(2, 35) + setLine(3, 101, "95ffffff") +
           R"({"kind":"event","sequence":4,"time":4000000000,"process":100,"thread":7,"event":393217,)"
           R"("payload":"0000000023000000","more":[1]})"
           "\n"
           R"({"kind":"loss","sequence":5,"time":5000000000,"process":100,"thread":8})"
           "\n" +
           setLine(6, 1, "null") + R"({"kind":"gap","sequence":7,"time":7000000000,"count":4})" + '\n' +
           R"({"kind":"temperature","celsius":41.5})" + '\n' +
           R"({"kind":"end","sequence":8,"time":8000000000,"reason":"program"})" + '\n';
}

/** A file with this text while the object lives. */
class Sample {
public:
    explicit Sample(const std::string& text = sample()) { std::ofstream(path()) << text; }

    std::string path() const { return mFolder.pathOf("sample.jsonl"); }
    std::string pathOf(const std::string& entry) const { return mFolder.pathOf(entry); }

    ToolRun run(const std::string& command, const Words& options = {}) const {
        Words words{"recording", command, path()};
        words.insert(words.end(), options.begin(), options.end());
        return runTool(words);
    }

private:
    TestFolder mFolder;
};

Words linesOf(const std::string& text) {
    Words lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(RecordingShow, hasALineForEachThing) {
    const ToolRun run = Sample().run("show");
    EXPECT_EQ(run.exit, 0) << run.error;
    const std::string speaker = "channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER";
    const std::string set = "CMD_AUDIO_SETVOLUME(" + speaker + ", vol=";
    EXPECT_EQ(linesOf(run.output),
              (Words{"recorded from 2026-11-22T13:55:01.000000000Z on, on m s, by version 1.0.0",
                     "    1.000000 [101] " + set + "35) -> 0 <0.000300>",
                     "    2.000000 [100] CMD_AUDIO_GETVOLUME(" + speaker + ") -> 0: 35 <0.000100>",
                     "    3.000000 [101] " + set + "101) -> -107, value out of range <0.000100>",
                     "    4.000000 [100:7] event 0x60001 volumeChanged (8 bytes): " + speaker + ", volume=35",
                     "    5.000000 [100:8] the service is gone",
                     "    6.000000 [100] " + set + "1) -> no reply: the link is dead <0.000100>",
                     "    7.000000 ... 4 left out", "    8.000000 the end: program"}));
}

TEST(RecordingShow, hasTheLinesThemselvesAsJson) { EXPECT_EQ(Sample().run("show", {"--json"}).output, sample()); }

TEST(RecordingShow, leavesOutWhatWasCutOff) {
    const std::string text = sample();
    const Sample cut(text.substr(0, text.size() - 5));
    EXPECT_EQ(cut.run("show").exit, 0);
    EXPECT_EQ(linesOf(cut.run("show").output).size(), 8U);
}

TEST(RecordingCut, takesWhatIsSelectedAsItStands) {
    const Words all = linesOf(sample());
    const auto cut = [](const Words& options) { return linesOf(Sample().run("cut", options).output); };
    EXPECT_EQ(cut({}), all);
    EXPECT_EQ(cut({"--from", "3", "--until", "5"}), (Words{all[0], all[3], all[4], all[5], all[8]}));
    EXPECT_EQ(cut({"--process", "101"}), (Words{all[0], all[1], all[3], all[7], all[8], all[9]}));
    EXPECT_EQ(cut({"--command", "CMD_AUDIO_GETVOLUME"}), (Words{all[0], all[2], all[7], all[8], all[9]}));
    EXPECT_EQ(cut({"--command", "CMD_AUDIO_*", "--process", "100", "--until", "4"}), (Words{all[0], all[2], all[8]}));
}

TEST(RecordingCut, writesAFileWhenItIsWhole) {
    const Sample whole;
    const std::string part = whole.pathOf("part");
    EXPECT_EQ(whole.run("cut", {"-o", part, "--until", "1"}).exit, 0);
    EXPECT_EQ(recording::linesOfFile(part).size(), 3U);
    const Sample wrong(sample() + "nonsense\n");
    EXPECT_EQ(wrong.run("cut", {"-o", part}).exit, 1);
    EXPECT_EQ(recording::linesOfFile(part).size(), 3U) << "what was there must stay";
}

TEST(RecordingCut, writesIntoAPipeAsItIs) {
    const Sample whole;
    const std::string pipe = whole.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    // Open for both, so that neither side waits for the other; what is written has room.
    const int reader = ::open(pipe.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    EXPECT_EQ(whole.run("cut", {"-o", pipe}).exit, 0);
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
    std::string text(sample().size(), '\0');
    EXPECT_EQ(::read(reader, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    EXPECT_EQ(text, sample());
    ::close(reader);
}

TEST(RecordingCut, replacesTheFileThatALinkLeadsTo) {
    const Sample whole;
    const std::string file = whole.pathOf("file");
    const std::string link = whole.pathOf("link");
    std::ofstream(file) << "before";
    ASSERT_EQ(::chmod(file.c_str(), 0604), 0);
    std::filesystem::create_symlink("file", link);
    EXPECT_EQ(whole.run("cut", {"-o", link}).exit, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    std::ifstream input(file);
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>(input), {}}), sample());
    EXPECT_EQ(static_cast<int>(std::filesystem::status(file).permissions()), 0604);
    EXPECT_EQ(whole.run("cut", {"-o", whole.pathOf("")}).exit, 1);
}

TEST(RecordingReport, countsCallsFailuresAndTimes) {
    const ToolRun run = Sample().run("report", {"--json"});
    const auto report = parsedJson(run.output);
    EXPECT_EQ(report.at("commands"),
              parsedJson(R"([{"command":"CMD_AUDIO_SETVOLUME","calls":3,"failures":2,"p50":0.0001,"p99":0.0003,)"
                         R"("max":0.0003},{"command":"CMD_AUDIO_GETVOLUME","calls":1,"failures":0,"p50":0.0001,)"
                         R"("p99":0.0001,"max":0.0001}])"));
    EXPECT_EQ(report.at("slowest").entries().front().at("duration"), 0.0003);
    EXPECT_EQ(report.at("slowest").entries().size(), 4U);
    EXPECT_EQ(report.at("failures").entries().size(), 2U);
    EXPECT_EQ(report.at("failures").entries().front(),
              parsedJson(R"({"call":"CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=1) -> no reply: )"
                         R"(the link is dead","count":1})"));
    EXPECT_EQ(report.at("events"), 1);
    // One event in the five seconds between the first call and the last.
    EXPECT_EQ(report.at("eventsPerSecond"), 0.2);
    EXPECT_EQ(report.at("leftOut"), 4);
    const Words lines = linesOf(Sample().run("report").output);
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[1], "       3        2      100      300      300  CMD_AUDIO_SETVOLUME");
    EXPECT_EQ(lines.back(), "left out: 4");
}

TEST(RecordingReport, roundsTimesAndKeepsTheGreatest) {
    std::string text = headerLine();
    for (int call = 1; call <= 200; ++call) {
        // 1000 to 1199 us, in any order.
        text += setLine(call, 35, "00000000", 1000 + call * 7 % 200);
    }
    const auto report = parsedJson(Sample(text).run("report", {"--json"}).output);
    const auto& command = report.at("commands").entries().front();
    EXPECT_EQ(command.at("calls"), 200);
    EXPECT_EQ(command.at("p50"), 0.00109);
    EXPECT_EQ(command.at("p99"), 0.00119);
    EXPECT_EQ(command.at("max"), 0.001199);
}

TEST(RecordingCheck, saysWhatARecordingHolds) {
    const ToolRun run = Sample().run("check");
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "1 section, 4 calls, 1 event, 1 loss, 4 left out; nothing is wrong\n");
    const std::string text = sample();
    const ToolRun cut = Sample(text.substr(0, text.size() - 5)).run("check");
    EXPECT_EQ(cut.exit, 0);
    EXPECT_EQ(cut.output, "1 section, 4 calls, 1 event, 1 loss, 4 left out; its end is missing; nothing is wrong\n");
}

/** What was recorded once can be read for good. */
TEST(RecordingCheck, readsTheRecordingsThatAreKept) {
    const ToolRun check = runTool({"recording", "check", KELUTV_RECORDINGS "/volume.jsonl"});
    EXPECT_EQ(check.exit, 0) << check.output;
    EXPECT_EQ(check.output, "1 section, 3 calls, 1 event, 0 losses, 0 left out; nothing is wrong\n");
    const ToolRun cut = runTool({"recording", "cut", KELUTV_RECORDINGS "/volume.jsonl"});
    std::ifstream file(KELUTV_RECORDINGS "/volume.jsonl");
    EXPECT_EQ(cut.output, (std::string{std::istreambuf_iterator<char>(file), {}}));
}

TEST(RecordingCheck, findsLinesBehindAnEnd) {
    const Sample more(sample() + setLine(9, 35) + R"({"kind":"temperature","celsius":40})" + '\n');
    const ToolRun run = more.run("check");
    EXPECT_EQ(run.exit, 1);
    const Words faults = linesOf(run.output);
    ASSERT_EQ(faults.size(), 2U) << run.output;
    EXPECT_EQ(faults[0],
              more.path() + ":11: it stands behind the end of its section, and a section begins with a header");
    EXPECT_EQ(Sample(sample() + sample()).run("check").exit, 0);
}

/** Those of a television whose events have other names cannot be compared. */
TEST(RecordingCheck, leavesEventsOfOtherTelevisionsAlone) {
    std::ifstream file(KELUTV_RECORDINGS "/volume.jsonl");
    std::string text{std::istreambuf_iterator<char>(file), {}};
    text.replace(text.find("volumeChanged"), 13, "soundIsLouder");
    EXPECT_EQ(Sample(text).run("check").output,
              "1 section, 3 calls, 1 event, 0 losses, 0 left out; nothing is wrong\n");
}

TEST(RecordingCheck, findsWhatIsWrong) {
    Words lines = linesOf(sample());
    std::swap(lines[1], lines[2]);
    lines.insert(lines.begin() + 5, "nonsense");
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    const Sample wrong(text);
    const ToolRun run = wrong.run("check");
    EXPECT_EQ(run.exit, 1);
    const Words faults = linesOf(run.output);
    ASSERT_EQ(faults.size(), 3U) << run.output;
    EXPECT_EQ(faults[0], wrong.path() + ":3: \"sequence\" is 1 behind 2");
    EXPECT_EQ(faults[1].substr(0, faults[1].rfind("this is not JSON")), wrong.path() + ":6: ");
    EXPECT_EQ(faults[2].substr(faults[2].rfind(';')), "; 2 faults");
    EXPECT_EQ(Sample("").run("check").exit, 1);
}

TEST(RecordingAnonymise, saysWhatItLeft) {
    EXPECT_EQ(Sample().run("anonymise").error, "");
    const Sample unknown(sample() + callLine(9, wordDigits(0x7fffffff), "00000000"));
    EXPECT_EQ(unknown.run("anonymise").error, "kelutv: what it holds is not known, and stays as it is: 1 line\n");
}

/** The longest times and the most that a recording can have, in several sections, of which some start never. */
TEST(RecordingCommands, takeTheGreatestNumbers) {
    const std::string most = "1152921504606846976";
    std::string text;
    for (const char* const start : {"2150-12-31T23:59:59.999999999Z", "9999-99-99T99:99:99.999999999Z",
                                    "1969-01-01T00:00:00.000000000Z", "now"}) {
        std::string section = headerLine() + setLine(1, 35) + getLine(2, 36);
        section.replace(section.find("2026-11-22T13:55:01.000000000Z"), 30, start);
        section.replace(section.find("\"time\":1000000000"), 17, "\"time\":-" + most);
        section.replace(section.find("\"time\":2000000000"), 17, "\"time\":" + most);
        section.replace(section.rfind("\"duration\":100000"), 17, "\"duration\":" + most);
        text += section + R"({"kind":"gap","sequence":3,"time":)" + most + R"(,"count":4294967295})" + '\n';
    }
    const Sample extreme(text);
    EXPECT_EQ(parsedJson(extreme.run("report", {"--json"}).output).at("leftOut"), std::int64_t{17179869180});
    EXPECT_EQ(extreme.run("show").exit, 0);
    for (const char* const form : {"pcapng", "trace-event", "scenario", "config"}) {
        EXPECT_EQ(extreme.run("convert", {"--to", form}).exit, 0) << form;
    }
}

TEST(RecordingCommands, refuseBytesInAnotherOrder) {
    std::string text = sample();
    text.replace(text.find("little"), 6, "big");
    const Sample other(text);
    for (const char* const command : {"show", "cut", "anonymise", "report"}) {
        const ToolRun run = other.run(command);
        EXPECT_EQ(run.exit, 1) << command;
        EXPECT_EQ(run.error,
                  "kelutv: " + other.path() + ":1: the bytes are in another order than those of this machine\n");
    }
    EXPECT_EQ(other.run("check").exit, 0);
}

TEST(RecordingCommands, refuseBadInput) {
    const Sample file;
    EXPECT_EQ(file.run("cut", {"--from", "2", "--until", "1"}).exit, 2);
    EXPECT_EQ(file.run("cut", {"--from", "soon"}).exit, 2);
    EXPECT_EQ(file.run("show", {"--command", "CMD_AUDIO_SETVOLUMES"}).exit, 2);
    EXPECT_EQ(runTool({"recording"}).exit, 2);
    EXPECT_EQ(runTool({"recording", "show", file.pathOf("nothing")}).error,
              "kelutv: cannot read " + file.pathOf("nothing") + ": No such file or directory\n");
    EXPECT_EQ(runTool({"recording", "show", file.pathOf("")}).exit, 1);
    const Sample empty("");
    for (const char* const command : {"show", "cut", "anonymise", "report"}) {
        const ToolRun run = empty.run(command);
        EXPECT_EQ(run.exit, 1) << command;
        EXPECT_EQ(run.error, "kelutv: " + empty.path() + " has no line, and a recording begins with a header\n");
    }
    const ToolRun other = Sample("{}\n").run("show");
    EXPECT_EQ(other.exit, 1);
    EXPECT_NE(other.error.find("sample.jsonl:1: \"kind\" is missing"), std::string::npos) << other.error;
}

} // namespace
} // namespace kelutv::test
