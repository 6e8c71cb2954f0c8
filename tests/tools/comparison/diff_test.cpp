#include "tools/ParsedJson.h"
#include "tools/recordings/Recorded.h"
#include "tools/recordings/RecordingText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace kelutv::test {
namespace {

using Words = std::vector<std::string>;

constexpr char kSpeaker[] = "channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER";

std::string setText(const std::string& volume) {
    return "CMD_AUDIO_SETVOLUME(" + std::string(kSpeaker) + ", vol=" + volume + ")";
}

std::string getText() { return "CMD_AUDIO_GETVOLUME(" + std::string(kSpeaker) + ")"; }

std::string setLine(int sequence, std::uint32_t volume) { return lineOf({sequence, setVolumeWords(volume)}); }

std::string getLine(int sequence, std::uint32_t volume) {
    return lineOf({sequence, getVolumeWords(), wordDigits(0) + wordDigits(volume)});
}

/** Lines 2 to 5. */
std::string sample() {
    return headerLine() + getLine(1, 20) + setLine(2, 35) + volumeEventLine(3, 35) + getLine(4, 35);
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    text.replace(text.find(what), what.size(), by);
    return text;
}

ToolRun diff(const std::string& first, const std::string& second, const Words& options = {}) {
    const TestFolder folder;
    const std::string one = folder.pathOf("one");
    const std::string other = folder.pathOf("other");
    std::ofstream(one) << first;
    std::ofstream(other) << second;
    Words words{"recording", "diff", one, other};
    words.insert(words.end(), options.begin(), options.end());
    return runTool(words);
}

/** The lines that tell of differences; checks that the exit code does, too. */
Words differences(const std::string& first, const std::string& second, const Words& options = {}) {
    const ToolRun run = diff(first, second, options);
    Words lines;
    std::istringstream stream(run.output);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    EXPECT_EQ(run.exit, lines.empty() ? 0 : 1) << run.error;
    return lines;
}

TEST(RecordingDiff, findsNothingBetweenARecordingAndItself) {
    const ToolRun run = diff(sample(), sample());
    EXPECT_EQ(run.exit, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.error, "kelutv: 0 differences in 4 calls and events\n");
}

TEST(RecordingDiff, passesOverTimesProcessesAndForms) {
    std::string other = headerLine();
    other += lineOf({11, getVolumeWords(), wordDigits(0) + wordDigits(20), 90, 7, 8});
    other += lineOf({12, setVolumeWords(35), "00000000", 70000, 7, 8});
    other += volumeEventLine(13, 35, 7, 9);
    other += lineOf({14, getVolumeWords(), wordDigits(0) + wordDigits(35), 1, 7, 8});
    other += R"({"kind":"temperature","celsius":41.5})"
             "\n"
             R"({"kind":"end","sequence":20,"time":20000000000,"reason":"program"})"
             "\n";
    EXPECT_EQ(differences(sample(), other), Words());
}

/** Each platform writes the token in a form of its own, which the header names. */
TEST(RecordingDiff, passesOverTheFormOfTheToken) {
    const std::string named = replaced(sample(), R"("token":"")", R"("token":")" + tokenDigits() + '"');
    std::string other = named;
    const std::string form = "00000080ffffffff5453595316000000" + tokenDigits().substr(16);
    for (std::size_t place = 0; (place = other.find(tokenDigits(), place)) != std::string::npos; place += form.size()) {
        other.replace(place, tokenDigits().size(), form);
    }
    EXPECT_EQ(differences(named, other), Words());
    EXPECT_EQ(differences(named, named), Words());
}

TEST(RecordingDiff, namesAnArgumentAndAResult) {
    EXPECT_EQ(differences(sample(), replaced(sample(), setVolumeWords(35), setVolumeWords(36))),
              Words{"A:3 B:3 changed " + setText("35") + " -> 0: vol 35 -> 36"});
    EXPECT_EQ(
        differences(sample(), headerLine() + getLine(1, 21) + setLine(2, 35) + volumeEventLine(3, 35) + getLine(4, 35)),
        Words{"A:2 B:2 changed " + getText() + " -> 0: 20: value 20 -> 21"});
    const std::string refused = headerLine() + getLine(1, 20) + lineOf({2, setVolumeWords(35), "95ffffff"}) +
                                volumeEventLine(3, 35) + getLine(4, 35);
    EXPECT_EQ(differences(sample(), refused),
              Words{"A:3 B:3 changed " + setText("35") + " -> 0: result 0 -> -107, value out of range"});
    const std::string dead = headerLine() + getLine(1, 20) + lineOf({2, setVolumeWords(35), "null"}) +
                             volumeEventLine(3, 35) + getLine(4, 35);
    EXPECT_EQ(differences(sample(), dead),
              Words{"A:3 B:3 changed " + setText("35") + " -> 0: status a reply -> no reply: the link is dead"});
}

TEST(RecordingDiff, namesEventsAndTheirFields) {
    const std::string event = "event 0x60001 volumeChanged (8 bytes): " + std::string(kSpeaker) + ", volume=35";
    const std::string lost = headerLine() + getLine(1, 20) + setLine(2, 35) + getLine(4, 35);
    EXPECT_EQ(differences(sample(), lost), Words{"A:4 missing " + event});
    EXPECT_EQ(differences(lost, sample()), Words{"B:4 added " + event});
    EXPECT_EQ(differences(sample(), replaced(sample(), volumeEventLine(3, 35), volumeEventLine(3, 36))),
              Words{"A:4 B:4 changed " + event + ": volume 35 -> 36"});
}

TEST(RecordingDiff, findsCallsThatAreMissingAddedOrSwapped) {
    const std::string lost = headerLine() + getLine(1, 20) + volumeEventLine(3, 35) + getLine(4, 35);
    EXPECT_EQ(differences(sample(), lost), Words{"A:3 missing " + setText("35") + " -> 0"});
    EXPECT_EQ(differences(lost, sample()), Words{"B:3 added " + setText("35") + " -> 0"});
    const std::string swapped =
        headerLine() + setLine(1, 35) + getLine(2, 20) + volumeEventLine(3, 35) + getLine(4, 35);
    EXPECT_EQ(differences(sample(), swapped), Words{"A:2 B:3 moved " + getText() + " -> 0: 20"});
}

/** Whichever word of a request has another byte, there is a difference that says where. */
TEST(RecordingDiff, findsEveryFlippedByte) {
    const std::string text = replaced(headerLine(), R"("token":"")", R"("token":")" + tokenDigits() + '"');
    const std::string request = tokenDigits() + setVolumeWords(35);
    const std::size_t command = tokenDigits().size();
    const auto lineWith = [&text](const std::string& digits) {
        return text + replaced(lineOf({1, setVolumeWords(35)}), tokenDigits() + setVolumeWords(35), digits);
    };
    for (std::size_t place = 0; place < request.size(); place += 8) {
        std::string flipped = request;
        flipped[place] = flipped[place] == '0' ? '1' : '0';
        const Words found = differences(lineWith(request), lineWith(flipped));
        // The strict-mode word, and what ends the token, say nothing; the name of the interface does.
        if (place == 0 || place + 8 == command) {
            ASSERT_EQ(found.size(), 1U);
            EXPECT_NE(found[0].find(": token "), std::string::npos) << found[0];
        } else if (place <= command) {
            ASSERT_EQ(found.size(), 2U) << place;
            EXPECT_EQ(found[0], "A:2 missing " + setText("35") + " -> 0");
            EXPECT_EQ(found[1].substr(0, 10), "B:2 added ");
        } else {
            ASSERT_EQ(found.size(), 1U) << place;
            EXPECT_NE(found[0].find(place == command + 8 ? ": channel " : ": vol 35 -> "), std::string::npos)
                << found[0];
        }
    }
}

TEST(RecordingDiff, namesBytesThatMeanNothing) {
    // Behind the command and the text of three letters stands a byte that fills up the word.
    const std::string words = wordDigits(0x2009) + wordDigits(0) + "ff000000";
    const std::string more = headerLine() + lineOf({1, words, wordDigits(0) + wordDigits(20)});
    const std::string other = headerLine() + lineOf({1, replaced(words, "ff", "fe"), wordDigits(0) + wordDigits(20)});
    const Words found = differences(more, other);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_NE(found[0].find(": byte 8 ff -> fe"), std::string::npos) << found[0];
}

TEST(RecordingDiff, leavesOutWhatIsIgnored) {
    const std::string other = headerLine() + getLine(1, 21) + setLine(2, 36) + volumeEventLine(3, 36) + getLine(4, 36);
    EXPECT_EQ(differences(sample(), other).size(), 4U);
    EXPECT_EQ(differences(sample(), other, {"--ignore", "CMD_AUDIO_GETVOLUME"}).size(), 2U);
    EXPECT_EQ(differences(sample(), other, {"--ignore", "*VOLUME", "--ignore", "volumeChanged"}), Words());
    EXPECT_EQ(differences(sample(), other, {"--ignore", "0x2008:vol", "--ignore", "0x60001:volume"}).size(), 2U);
    EXPECT_EQ(differences(sample(), other, {"--ignore", "any:v*", "--ignore", "volumeChanged:volume"}), Words());
    EXPECT_EQ(differences(sample(), other, {"--ignore", "any:channel", "--ignore", "volumeChanged:channel"}).size(),
              4U);
}

/** What is ignored does not say which call stands for which, either. */
TEST(RecordingDiff, alignsWithoutTheValuesThatAreIgnored) {
    std::string first = headerLine();
    std::string second = headerLine();
    for (int i = 1; i <= 3; ++i) {
        const auto volume = static_cast<std::uint32_t>(i);
        first += setLine(3 * i, volume) + volumeEventLine(3 * i + 1, volume) + getLine(3 * i + 2, volume);
        second += setLine(3 * i, volume + 1) + volumeEventLine(3 * i + 1, volume + 1) + getLine(3 * i + 2, volume + 1);
    }
    const Words shifted{"--ignore", "any:v*", "--ignore", "volumeChanged:volume"};
    EXPECT_EQ(differences(first, second, shifted), Words());
    // What is not ignored is found all the same.
    EXPECT_EQ(
        differences(first,
                    replaced(second, setVolumeWords(3), setVolumeWords(3).substr(0, 8) + wordDigits(1) + wordDigits(3)),
                    shifted),
        Words{"A:5 B:5 changed " + setText("2") +
              " -> 0: channel 0 KELU_TV_AUDIO_CHANNEL_SPEAKER -> 1 KELU_TV_AUDIO_CHANNEL_HEADPHONE"});
    EXPECT_EQ(differences(first, second + getLine(20, 9), shifted), Words{"B:11 added " + getText() + " -> 0: 9"});
}

TEST(RecordingDiff, tellsOfDurationsBeyondAFactor) {
    const auto text = [](int microseconds) {
        return headerLine() + lineOf({1, setVolumeWords(35), "00000000", microseconds});
    };
    EXPECT_EQ(differences(text(1000), text(5000)), Words());
    EXPECT_EQ(differences(text(1000), text(5000), {"--durations", "5"}), Words());
    EXPECT_EQ(differences(text(1000), text(5000), {"--durations", "4"}),
              Words{"A:2 B:2 changed " + setText("35") + " -> 0: duration 1 ms -> 5 ms"});
    EXPECT_EQ(differences(text(5000), text(1000), {"--durations", "4"}).size(), 1U);
    EXPECT_EQ(differences(text(5000), text(1000), {"--durations", "4", "--ignore", "any:duration"}), Words());
    // Both are short.
    EXPECT_EQ(differences(text(10), text(900), {"--durations", "2"}), Words());
}

/** Two threads that do different things, under other numbers and in another order. */
TEST(RecordingDiff, findsTheThreadsThatDidTheSame) {
    const auto call = [](int sequence, int thread, std::uint32_t volume) {
        return lineOf({sequence, setVolumeWords(volume), "00000000", 100, 50, thread});
    };
    const std::string first = headerLine() + call(1, 61, 1) + call(2, 62, 11) + call(3, 61, 2) + call(4, 62, 12) +
                              call(5, 61, 3) + call(6, 62, 13);
    const std::string second = headerLine() + call(1, 71, 11) + call(2, 72, 1) + call(3, 72, 2) + call(4, 71, 12) +
                               call(5, 71, 13) + call(6, 72, 4);
    EXPECT_EQ(differences(first, second), Words{"A:6 B:7 changed " + setText("3") + " -> 0: vol 3 -> 4"});
    const std::string without = headerLine() + call(1, 71, 11) + call(4, 71, 12) + call(5, 71, 13);
    EXPECT_EQ(differences(first, without),
              (Words{"A:2 missing " + setText("1") + " -> 0", "A:4 missing " + setText("2") + " -> 0",
                     "A:6 missing " + setText("3") + " -> 0"}));
}

TEST(RecordingDiff, hasDocuments) {
    const ToolRun run = diff(sample(), replaced(sample(), setVolumeWords(35), setVolumeWords(36)), {"--json"});
    std::istringstream lines(run.output);
    std::string changed;
    std::string sum;
    std::getline(lines, changed);
    std::getline(lines, sum);
    const tool::Json document = parsedJson(changed);
    EXPECT_EQ(document.at("difference"), "changed");
    EXPECT_EQ(document.at("first"),
              parsedJson(R"({"line":3,"process":100,"thread":100,"text":")" + setText("35") + R"( -> 0"})"));
    EXPECT_EQ(document.at("values"), parsedJson(R"([{"in":"request","name":"vol","first":35,"second":36}])"));
    EXPECT_EQ(parsedJson(sum), parsedJson(R"({"differences":1,"compared":4,"leftOutOfFirst":0,"leftOutOfSecond":0})"));
}

TEST(RecordingDiff, saysWhatWasLeftOut) {
    const std::string gap = R"({"kind":"gap","sequence":9,"time":9000000000,"count":4})"
                            "\n";
    EXPECT_EQ(diff(sample(), sample() + gap).error, "kelutv: 0 differences in 4 calls and events; 4 left out of B\n");
}

TEST(RecordingDiff, refusesBadInput) {
    EXPECT_EQ(diff(sample(), "nonsense\n").exit, 2);
    EXPECT_EQ(diff(sample(), sample(), {"--ignore", "CMD_AUDIO_SETVOLUMES"}).exit, 2);
    EXPECT_EQ(diff(sample(), sample(), {"--ignore", "CMD_AUDIO_SETVOLUME:"}).exit, 2);
    EXPECT_EQ(diff(sample(), sample(), {"--durations", "0.5"}).exit, 2);
    EXPECT_EQ(runTool({"recording", "diff", "-", "-"}).exit, 2);
    const TestFolder folder;
    const ToolRun none = runTool({"recording", "diff", folder.pathOf("a"), folder.pathOf("b")});
    EXPECT_EQ(none.exit, 2);
    EXPECT_NE(none.error.find("cannot read " + folder.pathOf("a")), std::string::npos) << none.error;
}

} // namespace
} // namespace kelutv::test
