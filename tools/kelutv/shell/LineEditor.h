#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** What the begun word at the end of the line may become, as whole words. */
using Completer =
    std::function<std::vector<std::string>(const std::vector<std::string>& words, const std::string& begun)>;

/** Gets the terminal ready to edit lines, with these lines to go back to. */
void startEditing(const std::vector<std::string>& history, const Completer& completer);

/**
 * One line of the terminal, without its end; nothing at the end of the input. An interrupt from the keyboard discards
 * what has been written and gives an empty line.
 */
std::optional<std::string> readLine(const std::string& prompt);

/** Adds a line to those that can be gone back to. */
void rememberLine(const std::string& line);

/** Whether and by what lines are edited, for `--version`. */
std::string lineEditingText();

} // namespace kelutv::tool
