#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** The words of a line that may not be finished yet. */
struct LineTokens {
    std::vector<std::string> complete;
    /** The word at the end of the line, begun and not ended by a space; empty when the next one has not begun. */
    std::string begun;
    /** The quotation mark that is still open, or 0. */
    char open = 0;
};

/**
 * Splits a line as a shell does: spaces separate words; '...' as it stands; "..." with \" and \\; a backslash
 * before any other character; # at the beginning of a word ends the line. Nothing is expanded.
 */
LineTokens tokenizeUnfinished(const std::string& line);

/** The words of a whole line. @throws UsageError when a quotation mark is not closed */
std::vector<std::string> tokenize(const std::string& line);

} // namespace kelutv::tool
