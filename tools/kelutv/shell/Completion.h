#pragma once

#include "tools/kelutv/parser/Parser.h"

#include <functional>
#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * What the word that is begun may become: commands, options, functions (short names; full ones once they are begun),
 * enumerators of the argument at this place, settings and their values, files, and files behind an @.
 *
 * @param words the words before it, without the program's name
 * @return whole words, in order; a folder ends in a slash
 */
std::vector<std::string> completionsOf(const Command& program, const std::vector<std::string>& words,
                                       const std::string& begun);

/** @param words the arguments of the command before the begun one @return whole words, in any order */
using WordSource =
    std::function<std::vector<std::string>(const std::vector<std::string>& words, const std::string& begun)>;

/** Says what may stand where the help of a command has this form. */
void completeAs(const std::string& form, const WordSource& source);

/** Those that begin as the word does, in order, each once. */
std::vector<std::string> narrowed(std::vector<std::string> names, const std::string& begun);

} // namespace kelutv::tool
