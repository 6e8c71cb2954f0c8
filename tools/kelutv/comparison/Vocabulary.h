#pragma once

#include "tools/kelutv/comparison/Happening.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace kelutv::tool {

/** Numbers that stand for a happening in one comparison. */
struct Token {
    /** The same for happenings that are alike in all. */
    std::uint32_t whole;
    /** The same where what was sent, or the event, is alike, whatever was answered. */
    std::uint32_t request;
    /** The same where command and item, or the event, are alike, whatever the arguments. */
    std::uint32_t subject;
};

/** Gives numbers to happenings and keeps each different one once. */
class Vocabulary {
public:
    Token tokenOf(const Happening& happening);

    const Happening& happeningOf(const Token& token) const { return mHappenings[token.whole]; }

private:
    using Numbers = std::unordered_map<std::string, std::uint32_t>;

    Token newTokenOf(const Happening& happening, const std::string& request);

    Numbers mWholes;
    Numbers mRequests;
    Numbers mSubjects;
    std::vector<Token> mTokens;
    std::vector<Happening> mHappenings;
    /** By the number of the request. */
    std::vector<std::uint32_t> mSubjectsOfRequests;
};

} // namespace kelutv::tool
