#pragma once

#include "tools/kelutv/comparison/ComparedKeys.h"
#include "tools/kelutv/comparison/Ignored.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace kelutv::tool {

/** Numbers that stand for a happening in one comparison; what is passed over does not count. */
struct Token {
    /** The same for happenings that are alike in what was sent and what was answered. */
    std::uint32_t whole;
    /** The same where what was sent, or the event, is alike, whatever was answered. */
    std::uint32_t request;
    /** The same where command and item, or the event, are alike, whatever the arguments. */
    std::uint32_t subject;
    /** The same for happenings that are alike byte for byte. */
    std::uint32_t happening = 0;
};

/** Gives numbers to happenings and keeps each different one once. */
class Vocabulary {
public:
    /** @param ignored what is passed over; must outlive it */
    explicit Vocabulary(const Ignored& ignored) : mIgnored(ignored) {}

    Token tokenOf(const Happening& happening);

    const Happening& happeningOf(const Token& token) const { return mHappenings[token.happening]; }

private:
    using Numbers = std::unordered_map<std::string, std::uint32_t>;

    Token newTokenOf(const Happening& happening, const ComparedKeys& exact);

    const Ignored& mIgnored;
    /** By all bytes of a happening. */
    Numbers mExact;
    /** The first happening of each key that leaves something out. */
    Numbers mWholes;
    Numbers mRequests;
    Numbers mSubjects;
    std::vector<Token> mTokens;
    std::vector<Happening> mHappenings;
    /** By the number of the request. */
    std::vector<std::uint32_t> mSubjectsOfRequests;
};

} // namespace kelutv::tool
