#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** The words of a line that may not be finished yet. */
struct Words {
    std::vector<std::string> complete;
    /** The word at the end of the line, begun and not ended by a space; empty when the next one has not begun. */
    std::string begun;
    /** The quotation mark that is still open, or 0. */
    char open = 0;
};

/**
 * Takes a line apart as a shell does: words apart by spaces; '...' as it stands; "..." with \" and \\; a backslash
 * before any other character; # at the beginning of a word ends the line. Nothing is expanded.
 */
Words wordsBegun(const std::string& line);

/** The words of a whole line. @throws UsageError when a quotation mark is not closed */
std::vector<std::string> wordsOf(const std::string& line);

} // namespace kelutv::tool
