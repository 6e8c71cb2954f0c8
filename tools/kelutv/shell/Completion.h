#pragma once

#include "tools/kelutv/parser/Parser.h"

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

} // namespace kelutv::tool
