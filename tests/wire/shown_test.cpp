#include "wire/text/Shown.h"

#include <gtest/gtest.h>

#include <string>

namespace kelutv::wire {

namespace {

TEST(Shown, LeavesWhatCanBePrinted) {
    EXPECT_EQ(shown(""), "");
    EXPECT_EQ(shown("audio.volume[0] = 'x' \\"), "audio.volume[0] = 'x' \\");
    EXPECT_EQ(shown("gr\xC3\xBC\xC3\x9F dich \xE2\x82\xAC \xF0\x9F\x93\xBA"),
              "gr\xC3\xBC\xC3\x9F dich \xE2\x82\xAC \xF0\x9F\x93\xBA");
}

TEST(Shown, EscapesWhatDoesSomethingToATerminal) {
    EXPECT_EQ(shown("\x1b[2Jx\n\x7f"), "\\x1b[2Jx\\x0a\\x7f");
    EXPECT_EQ(shown(std::string("\0", 1)), "\\x00");
    // CSI as one character, in UTF-8 and without.
    EXPECT_EQ(shown("\xC2\x9B"), "\\xc2\\x9b");
    EXPECT_EQ(shown("\x9B"), "\\x9b");
}

TEST(Shown, EscapesWhatIsNotUtf8) {
    EXPECT_EQ(shown("\xC3"), "\\xc3");
    EXPECT_EQ(shown("\xC3(\xE2\x82"), "\\xc3(\\xe2\\x82");
    EXPECT_EQ(shown("\xC0\xAF \xE0\x80\x80 \xED\xA0\x80 \xF4\x90\x80\x80 \xFF"),
              "\\xc0\\xaf \\xe0\\x80\\x80 \\xed\\xa0\\x80 \\xf4\\x90\\x80\\x80 \\xff");
}

TEST(Shown, ShortensBetweenCharacters) {
    EXPECT_EQ(shown(std::string(80, 'a')), std::string(80, 'a'));
    EXPECT_EQ(shown(std::string(81, 'a')), std::string(80, 'a') + "...");
    EXPECT_EQ(shown("abc\xC3\xBC", 4), "abc...");
    EXPECT_EQ(shown("abc\xC3\xBC", 5), "abc\xC3\xBC");
    EXPECT_EQ(shown(std::string(5000, '\x1b'), kMostOfPath).size(), 4 * kMostOfPath + 3);
}

} // namespace

} // namespace kelutv::wire
