// How the lines of the control channel are read, whatever is in them.

#include "simulator/control/Control.h"
#include "simulator/control/ControlVerbs.h"
#include "simulator/television/StateRequests.h"
#include "simulator/text/Numbers.h"
#include "simulator/text/Tokenizer.h"
#include "wire/StateForm.h"
#include "wire/text/Quote.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

namespace kelutv::simulator {

namespace {

std::vector<std::string> textsOf(const Tokens& words) {
    std::vector<std::string> texts;
    for (const Token& word : words) {
        texts.push_back(word.text());
    }
    return texts;
}

using Texts = std::vector<std::string>;

TEST(ControlLines, AreCutIntoWords) {
    EXPECT_EQ(textsOf(tokensOf("")), Texts{});
    EXPECT_EQ(textsOf(tokensOf(" one\t two ")), (Texts{"one", "two"}));
    EXPECT_EQ(textsOf(tokensOf("name=\"two words\" \"\" \"\\\"\\\\\\x1f\\n\"")),
              (Texts{"name=two words", "", "\"\\\x1fn"}));
    EXPECT_EQ(textsOf(tokensOf("1,2 , \"3,4\"", ", ")), (Texts{"1", "2", "3,4"}));
    EXPECT_THROW(tokensOf("one \"two"), BadLine);
    EXPECT_THROW(tokensOf("\"\\"), BadLine);
}

TEST(ControlLines, TakeEveryTextInQuotes) {
    std::string every;
    for (int byte = 0; byte < 256; ++byte) {
        every += static_cast<char>(byte);
    }
    EXPECT_EQ(textsOf(tokensOf(wire::inQuotes(every))), Texts{every});
}

TEST(ControlLines, HaveNumbersAndBytes) {
    EXPECT_EQ(int32Of("-2147483648"), INT32_MIN);
    EXPECT_EQ(int32Of("0xFFFFFFFF"), -1);
    EXPECT_EQ(int32Of("0x7f"), 127);
    for (const char* const word : {"", "-", "0x", "1 ", "2147483648", "0x100000000", "1.5", "one"}) {
        EXPECT_EQ(int32Of(word), std::nullopt) << word;
    }
    EXPECT_EQ(bytesOf("0x00fF:41"), std::string("\x00\xff\x41", 3));
    EXPECT_EQ(bytesOf(""), "");
    for (const char* const word : {"0", "0g", "+1", " 1", "012"}) {
        EXPECT_EQ(bytesOf(word), std::nullopt) << word;
    }
}

TEST(ControlLines, TakeNumbersAndNames) {
    const wire::Names modes("MODE_E", {{"A_MODE_VIVID", 1}, {"A_MODE_STANDARD", 2}});
    for (const char* const word : {"A_MODE_STANDARD", "standard", "2", "0x2"}) {
        EXPECT_EQ(integerOf(word, modes, "mode"), 2) << word;
    }
    EXPECT_EQ(integerOf("99", modes, "mode"), 99);
    try {
        integerOf("soft", modes, "mode");
        FAIL() << "a name that does not exist was taken";
    } catch (const BadLine& error) {
        EXPECT_STREQ(error.what(), "mode: 'soft' is not one of vivid, standard");
    }
}

class ControlOfEquipment : public ::testing::Test {
protected:
    Answer obey(const std::string& line) {
        return simulator::obey(mEquipment.configuration, line, [this](const Deed& deed) { return deed(mEquipment); });
    }

    Equipment mEquipment{Configuration::standard(), EepStore()};
};

/** A word that the part of a state takes. */
std::string wordFor(const wire::StatePart& part) {
    return part.encoding == wire::Encoding::CString || part.encoding == wire::Encoding::String16 ||
                   part.encoding == wire::Encoding::Bytes
               ? "\"text\""
               : "1";
}

std::string wordsFor(const std::vector<wire::StatePart>& parts) {
    std::string words;
    for (const wire::StatePart& part : parts) {
        words += (words.empty() ? "" : ", ") + wordFor(part);
    }
    return words;
}

TEST_F(ControlOfEquipment, SetsEveryStateToWhatGetShows) {
    int set = 0;
    for (const wire::StateKey& key : wire::allStates()) {
        const wire::StateForm form = wire::formOf(key);
        const std::string target = key.name + (form.indexes.empty() ? "" : '[' + wordsFor(form.indexes) + ']');
        const std::string line = target + " = " + wordsFor(form.values);
        if (!isPlainState(mEquipment, key, wire::Values(form.indexes.size(), std::int32_t{1}))) {
            continue;
        }
        const Answer done = obey(line);
        EXPECT_TRUE(done.ok) << line << ": " << done.text;
        EXPECT_EQ(obey("get " + target).text, line);
        ++set;
    }
    EXPECT_GT(set, 350);
}

/** Words of any length are told apart from names in no time, and messages show the beginning. */
TEST_F(ControlOfEquipment, ShowsTheBeginningOfLongWords) {
    const std::string word(256 * 1024 - 64, 'A');
    for (const char* const line : {"fault ", "fault any ", "set ", "get ", "signal hdmi1 ", "plug ", "key ", "event ",
                                   "show ", "cec add ", "power ", "help ", "show *[", ""}) {
        const auto start = std::chrono::steady_clock::now();
        const Answer answer = obey(line + word);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << line;
        EXPECT_FALSE(answer.ok) << line;
        EXPECT_LT(answer.text.size(), 2000U) << line;
        EXPECT_NE(answer.text.find("..."), std::string::npos) << line << answer.text;
    }
    EXPECT_EQ(obey("get \x1b[2J").text.find('\x1b'), std::string::npos);
}

/** What comes of lines that somebody else wrote, one piece of which is replaced by another. */
TEST_F(ControlOfEquipment, SurvivesEveryLine) {
    const std::string pieces[] = {"\"",
                                  "[",
                                  "]",
                                  "=",
                                  ",",
                                  " ",
                                  "\\",
                                  "@",
                                  "0x",
                                  "-1",
                                  "*",
                                  "#",
                                  "+",
                                  "add",
                                  "none",
                                  "99999999999",
                                  "KELU_TV_SRC_HDMI1",
                                  "audio.volume",
                                  "cec",
                                  "\x01",
                                  "\xff",
                                  ""};
    std::mt19937 random(4711); // NOLINT(cert-msc51-cpp): the same lines each time
    const auto pick = [&random](std::size_t count) { return random() % count; };
    for (int round = 0; round < 60; ++round) {
        for (const ControlVerb& verb : controlVerbs()) {
            std::string line = verb.example;
            for (std::size_t edits = 1 + pick(4); edits > 0; --edits) {
                line.replace(pick(line.size() + 1), pick(4), pieces[pick(std::size(pieces))]);
            }
            const Answer answer = obey(line);
            EXPECT_TRUE(answer.ok || !answer.text.empty()) << line;
        }
        mEquipment.events.clear();
    }
}

} // namespace

} // namespace kelutv::simulator
