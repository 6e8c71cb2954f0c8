#include "recording/Reader.h"
#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <sstream>
#include <streambuf>
#include <string>
#include <system_error>
#include <vector>

namespace kelutv::recording {

namespace {

const std::string kFirstLine = R"({"kind":"header","format":1,"library":"1","catalogue":"","token":"","machine":"",)"
                               R"("system":"","byteOrder":"big","start":""})"
                               "\n";
const std::string kSecondLine = R"({"kind":"loss","sequence":1,"time":3,"process":1,"thread":1})"
                                "\n";

TEST(Reader, readsUpToTheLastWholeLine) {
    // Wherever a recorder was killed.
    const std::string text = kFirstLine + kSecondLine;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        std::istringstream input(text.substr(0, length));
        Reader reader(input, "cut");
        std::size_t lines = 0;
        while (reader.next()) {
            ++lines;
        }
        EXPECT_EQ(lines, length < kFirstLine.size() ? 0U : length < text.size() ? 1U : 2U) << length;
        EXPECT_EQ(reader.isCutOff(), length != 0 && length != kFirstLine.size() && length != text.size()) << length;
    }
}

TEST(Reader, namesTheLineThatIsWrongAndGoesOn) {
    std::istringstream input(kFirstLine + "nonsense\n" + kSecondLine);
    Reader reader(input, "some.jsonl");
    EXPECT_TRUE(reader.next());
    try {
        reader.next();
        FAIL();
    } catch (const LineError& error) {
        EXPECT_EQ(std::string(error.what()).substr(0, 31), "some.jsonl:2: this is not JSON:");
    }
    EXPECT_TRUE(std::holds_alternative<Loss>(reader.next()->content));
    EXPECT_EQ(reader.number(), 3U);
}

TEST(Reader, beginsWithAHeader) {
    std::istringstream input(kSecondLine);
    EXPECT_THROW(Reader(input, "headless").next(), LineError);
}

/** Zeros without an end. */
class Endless : public std::streambuf {
protected:
    int_type underflow() override {
        setg(mZeros.data(), mZeros.data(), mZeros.data() + mZeros.size());
        return 0;
    }

private:
    std::vector<char> mZeros = std::vector<char>(65536, 0);
};

TEST(Reader, readsNoEndlessLine) {
    Endless zeros;
    std::istream input(&zeros);
    Reader reader(input, "zeros");
    try {
        reader.next();
        ADD_FAILURE();
    } catch (const LineError& error) {
        EXPECT_STREQ(error.what(), "zeros:1: it is longer than 64 MiB, and nothing behind it is read");
    }
    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.isCutOff());
}

TEST(Reader, readsLongLines) {
    const std::string unknown = R"({"kind":"later","text":")" + std::string(1000000, 'x') + "\"}";
    std::istringstream input(kFirstLine + unknown + '\n' + unknown);
    Reader reader(input, "long");
    ASSERT_TRUE(reader.next());
    const std::optional<Line> line = reader.next();
    ASSERT_TRUE(line);
    EXPECT_EQ(textOf(*line), unknown);
    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.isCutOff());
    EXPECT_EQ(reader.number(), 2U);
}

TEST(Reader, readsWholeFiles) {
    const test::TestFolder folder;
    std::ofstream(folder.pathOf("file")) << kFirstLine << kSecondLine << "{\"kind\"";
    EXPECT_EQ(linesOfFile(folder.pathOf("file")).size(), 2U);
    EXPECT_THROW(linesOfFile(folder.pathOf("nothing")), std::system_error);
}

} // namespace

} // namespace kelutv::recording
