#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::simulator {

/** What is wrong with a line of the control channel; nothing has been done then. */
class BadLine : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** A token as it stands in the line. In quotes, `\"` and `\\` are the character, `\x1f` a byte. */
struct Token {
    std::string raw;

    bool isQuoted() const { return raw.find('"') != std::string::npos; }
    /** Without its quotes. */
    std::string text() const;
};
using Tokens = std::vector<Token>;

/** Cuts a text at the separators that stand outside quotes. @throws BadLine for a quote without an end */
Tokens tokensOf(const std::string& text, const char* separators = " \t\r");

/** `NAME[KEY...] = VALUE...`, of which all but the name is optional. */
struct Assignment {
    std::string name;
    Tokens indexes;
    /** Nothing when there is no equals sign. */
    std::optional<Tokens> values;
};
Assignment assignmentOf(const std::string& text);

/** The text of the only token if that is in quotes; else what was given. */
std::string unwrapped(const std::string& text);

/** Without the blanks at both ends. */
std::string trimmed(const std::string& text);

/** The words between blanks; quotes are characters like any other. */
std::vector<std::string> wordsOf(const std::string& line);

} // namespace kelutv::simulator
