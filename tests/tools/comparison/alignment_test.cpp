#include "tools/kelutv/comparison/Alignment.h"
#include "tools/kelutv/comparison/ThreadPairs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::test {
namespace {

using tool::Aligned;
using tool::Token;

/** A letter is a subject, `a` and `A` are two requests of it; a digit behind is what was answered. */
std::vector<Token> tokensOf(const std::string& text) {
    std::vector<Token> tokens;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto letter = static_cast<std::uint32_t>(text[i]);
        const bool isAnswered = i + 1 < text.size() && text[i + 1] >= '0' && text[i + 1] <= '9';
        const std::uint32_t answer = isAnswered ? static_cast<std::uint32_t>(text[++i] - '0') + 1 : 0;
        tokens.push_back({letter * 100 + answer, letter, letter | 0x20U});
    }
    return tokens;
}

/** `01` for a pair, `0-` and `-1` for what one side lacks. */
std::string alignmentOf(const std::string& first, const std::string& second) {
    const auto digit = [](const std::optional<std::size_t>& index) { return index ? std::to_string(*index) : "-"; };
    std::string text;
    for (const Aligned& each : tool::align(tokensOf(first), tokensOf(second))) {
        text += (text.empty() ? "" : " ") + digit(each.first) + digit(each.second);
    }
    return text;
}

TEST(Alignment, pairsWhatIsAlike) {
    EXPECT_EQ(alignmentOf("abc", "abc"), "00 11 22");
    EXPECT_EQ(alignmentOf("", ""), "");
    EXPECT_EQ(alignmentOf("ab", ""), "0- 1-");
    EXPECT_EQ(alignmentOf("", "a"), "-0");
}

TEST(Alignment, findsWhatIsMissingAndAdded) {
    EXPECT_EQ(alignmentOf("abcd", "abd"), "00 11 2- 32");
    EXPECT_EQ(alignmentOf("abd", "abcd"), "00 11 -2 23");
}

TEST(Alignment, findsTheOneOfMany) {
    // The third of the polls is missing, and not the last one with all answers but the first two shifted.
    EXPECT_EQ(alignmentOf("a1a2a3a4a5", "a1a2a4a5"), "00 11 2- 32 43");
}

TEST(Alignment, prefersTheRequestToTheSubject) {
    EXPECT_EQ(alignmentOf("xaAy", "xAy"), "00 1- 21 32");
    EXPECT_EQ(alignmentOf("xay", "xAy"), "00 11 22");
    // All answers have changed: nothing is missing.
    EXPECT_EQ(alignmentOf("a1s1a2", "a2s2a3"), "00 11 22");
}

TEST(Alignment, keepsOneOfASwappedPair) {
    const std::string text = alignmentOf("xaby", "xbay");
    EXPECT_TRUE(text == "00 1- 21 -2 33" || text == "00 -1 12 2- 33") << text;
    // Two requests of one subject have not both changed.
    const std::string alike = alignmentOf("xaAy", "xAay");
    EXPECT_TRUE(alike == "00 1- 21 -2 33" || alike == "00 -1 12 2- 33") << alike;
}

/** Requests that each come once, or only three different ones. */
std::vector<Token> manyTokens(std::size_t count, std::uint32_t different) {
    std::vector<Token> tokens;
    std::uint32_t chance = 1;
    for (std::uint32_t i = 0; i < count; ++i) {
        chance = chance * 1664525U + 1013904223U;
        const std::uint32_t request = different == 0 ? i : (chance >> 16) % different;
        tokens.push_back({request, request, 0});
    }
    return tokens;
}

std::size_t pairsIn(const std::vector<Aligned>& aligned) {
    return static_cast<std::size_t>(
        std::count_if(aligned.begin(), aligned.end(), [](const Aligned& each) { return each.first && each.second; }));
}

/** Every place of both once and in order. */
void expectWhole(const std::vector<Aligned>& aligned, std::size_t first, std::size_t second) {
    std::size_t nextFirst = 0;
    std::size_t nextSecond = 0;
    for (const Aligned& each : aligned) {
        ASSERT_TRUE(each.first || each.second);
        ASSERT_EQ(each.first.value_or(nextFirst), nextFirst);
        ASSERT_EQ(each.second.value_or(nextSecond), nextSecond);
        nextFirst += each.first ? 1 : 0;
        nextSecond += each.second ? 1 : 0;
    }
    EXPECT_EQ(nextFirst, first);
    EXPECT_EQ(nextSecond, second);
}

TEST(Alignment, findsALargeBlockThatIsMissing) {
    for (const std::uint32_t different : {0U, 3U}) {
        const std::vector<Token> all = manyTokens(100000, different);
        std::vector<Token> part = all;
        // The first and the last are others, so that neither beginning nor end is alike.
        part.front() = part.back() = {1000000, 1000000, 1};
        part.erase(part.begin() + 30000, part.begin() + 55000);
        const std::vector<Aligned> aligned = tool::align(all, part);
        expectWhole(aligned, all.size(), part.size());
        EXPECT_EQ(pairsIn(aligned), part.size() - 2) << different;
    }
}

/** Threads that have done nothing in full alike, each of a subject of its own. */
tool::RecordedThreads threadsOf(std::uint32_t count, bool isReversed) {
    tool::RecordedThreads threads;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t request = i + (isReversed ? count : 0);
        threads.threads.push_back({1, 1, {{request, request, isReversed ? count - 1 - i : i}}, {}});
    }
    return threads;
}

TEST(ThreadPairs, areFoundByWhatWasDoneUpToABoundOfMemory) {
    for (const std::uint32_t count : {100U, 2001U}) {
        const tool::RecordedThreads first = threadsOf(count, false);
        const tool::RecordedThreads second = threadsOf(count, true);
        const std::vector<tool::ThreadPair> pairs = tool::pairsOf(first, second);
        ASSERT_EQ(pairs.size(), count);
        for (std::uint32_t i = 0; i < count; ++i) {
            ASSERT_EQ(pairs[i].first, &first.threads[i]);
            ASSERT_EQ(pairs[i].second, &second.threads[count == 100 ? count - 1 - i : i]) << count;
        }
    }
}

TEST(Alignment, endsWithoutAnythingInCommon) {
    const std::vector<Token> first = manyTokens(20000, 3);
    std::vector<Token> second = manyTokens(30000, 3);
    for (Token& token : second) {
        token = {token.whole + 10, token.request + 10, 1};
    }
    const std::vector<Aligned> aligned = tool::align(first, second);
    expectWhole(aligned, first.size(), second.size());
    EXPECT_EQ(pairsIn(aligned), 0U);
}

} // namespace
} // namespace kelutv::test
