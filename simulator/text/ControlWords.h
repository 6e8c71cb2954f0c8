#pragma once

#include "wire/text/Names.h"
#include "wire/text/Numbers.h"

#include <cstdint>
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

/** A word as it stands in the line. In quotes, `\"` and `\\` are the character, `\x1f` a byte. */
struct ControlWord {
    std::string raw;

    bool isQuoted() const { return raw.find('"') != std::string::npos; }
    /** Without its quotes. */
    std::string text() const;
};
using ControlWords = std::vector<ControlWord>;

/** Cuts a text at the separators that stand outside quotes. @throws BadLine for a quote without an end */
ControlWords wordsIn(const std::string& text, const char* separators = " \t\r");

/** `NAME[KEY...] = VALUE...`, of which all but the name may be missing. */
struct Assignment {
    std::string name;
    ControlWords indexes;
    /** Nothing when there is no equals sign. */
    std::optional<ControlWords> values;
};
Assignment assignmentOf(const std::string& text);

using wire::int32Of;

/** Bytes in hexadecimal; colons and `0x` in front do not count. */
std::optional<std::string> bytesOf(const std::string& hex);

/** The number that a word says, or the value that it names. @throws BadLine that says what is allowed for `what` */
std::int32_t integerOf(const std::string& word, const wire::Names& names, const std::string& what);

/** The text of the only word if that is in quotes; else what was given. */
std::string unwrapped(const std::string& text);

/** Without the blanks at both ends. */
std::string trimmed(const std::string& text);

std::string joinedLines(const std::vector<std::string>& lines);

/** `a, b and c`. */
std::string listed(const std::vector<std::string>& names);

} // namespace kelutv::simulator
